#include "timenames_p.h"

namespace ZrTicks {

// clang-format off
// An escaped letter in front of a letter from a to f needs a literal of its own, or the escape would take both.
static constexpr TimeNames german = {
    {"Januar", "Februar", "M\xE4rz", "April", "Mai", "Juni",
     "Juli", "August", "September", "Oktober", "November", "Dezember"},
    {"Jan", "Feb", "M\xE4r", "Apr", "Mai", "Jun", "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"},
    {"Sonntag", "Montag", "Dienstag", "Mittwoch", "Donnerstag", "Freitag", "Samstag"},
    {"Son", "Mon", "Die", "Mit", "Don", "Fre", "Sam"},
};

static constexpr TimeNames english = {
    {"January", "February", "March", "April", "May", "June",
     "July", "August", "September", "October", "November", "December"},
    {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"},
    {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"},
    {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"},
};

// On purpose: June is "Jun" and July is "Jui", so that the two differ.
static constexpr TimeNames french = {
    {"Janvier", "F\xE9vrier", "Mars", "Avril", "Mai", "Juin",
     "Juillet", "Ao\xFBt", "Septembre", "Octobre", "Novembre", "D\xE9" "cembre"},
    {"Jan", "F\xE9v", "Mar", "Avr", "Mai", "Jun", "Jui", "Ao\xFB", "Sep", "Oct", "Nov", "D\xE9" "c"},
    {"Dimanche", "Lundi", "Mardi", "Mercredi", "Jeudi", "Vendredi", "Samedi"},
    {"Dim", "Lun", "Mar", "Mer", "Jeu", "Ven", "Sam"},
};
// clang-format on

const TimeNames &timeNames(Language language)
{
    switch (language) {
    case Language::German:
        return german;
    case Language::French:
        return french;
    case Language::English:
        break;
    }
    return english;
}

} // namespace ZrTicks
