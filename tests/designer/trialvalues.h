#ifndef TRIALVALUES_H
#define TRIALVALUES_H

#include <QtCore/QMetaProperty>
#include <QtCore/QVariant>
#include <QtGui/QColor>
#include <QtWidgets/QWidget>

/// The properties that a widget of the library adds to those of Qt.
inline QList<QMetaProperty> ownProperties(const QMetaObject *metaObject)
{
    QList<QMetaProperty> result;
    for (int i = QWidget::staticMetaObject.propertyCount(); i < metaObject->propertyCount(); ++i) {
        const QMetaProperty property = metaObject->property(i);
        if (QByteArray(property.enclosingMetaObject()->className()).startsWith("ZrQt"))
            result.append(property);
    }
    return result;
}

/// What a property of an enumeration, of flags or of a colour is tried with; empty for other types.
inline QVariantList trialValues(const QMetaProperty &property)
{
    QVariantList result;
    if (property.userType() == QMetaType::QColor)
        result = {QColor(1, 2, 3), QColor(4, 5, 6, 128), QColor(7, 8, 9, 0)};
    const QMetaEnum enumerator = property.isEnumType() ? property.enumerator() : QMetaEnum();
    int all = 0;
    for (int i = 0; i < enumerator.keyCount(); ++i) {
        // A mask, and no style.
        if (qstrcmp(enumerator.key(i), "MPenStyle") == 0)
            continue;
        result.append(enumerator.value(i));
        all |= enumerator.value(i);
    }
    // None of the flags is left out: Qt itself reads an empty set as all bits.
    if (property.isFlagType())
        result += all;
    return result;
}

/// Whether \a widget holds \a value, which may be the number of an enumeration.
inline bool holds(const QWidget *widget, const QMetaProperty &property, const QVariant &value)
{
    const QVariant held = property.read(widget);
    return value.userType() == QMetaType::QColor ? held == value : held.toInt() == value.toInt();
}

#endif // TRIALVALUES_H
