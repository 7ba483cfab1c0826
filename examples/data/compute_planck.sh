#!/usr/bin/env bash
# Computes the light that black bodies of four temperatures send out, over the wavelength, as CSV. planck.csv was
# made with it.
#
#   examples/data/compute_planck.sh > planck.csv
#
# Planck's law: B = 2 h c^2 / l^5 / (exp(h c / (l k T)) - 1), the spectral radiance at wavelength l and temperature T.
# M. Planck, "Ueber das Gesetz der Energieverteilung im Normalspectrum", Annalen der Physik 309 (1901), p. 553. The
# constants h, c and k are those of the International System of Units since 2019.
#
# Columns: the wavelength in micrometres; the radiance in W/(m^2 sr um) at each temperature in kelvin. Radiances that no
# instrument could tell from none are left empty. The curves span fifteen decades: show them with --log-y.
set -euo pipefail

LC_ALL=C awk 'BEGIN {
    h = 6.62607015e-34
    c = 299792458
    k = 1.380649e-23
    count = split("300 1000 3000 5772", temperature, " ")

    printf "wavelength_um"
    for (i = 1; i <= count; ++i)
        printf ",%d K", temperature[i]
    printf "\n"

    for (step = 4; step <= 800; ++step) {
        micrometres = step / 40
        l = micrometres * 1e-6
        printf "%.3f", micrometres
        for (i = 1; i <= count; ++i) {
            # Per micrometre, not per metre of wavelength: hence the last factor.
            radiance = 2 * h * c * c / l ^ 5 / (exp(h * c / (l * k * temperature[i])) - 1) * 1e-6
            if (radiance >= 1e-8)
                printf ",%.5g", radiance
            else
                printf ","
        }
        printf "\n"
    }
}'
