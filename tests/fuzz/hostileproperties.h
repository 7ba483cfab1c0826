#ifndef HOSTILEPROPERTIES_H
#define HOSTILEPROPERTIES_H

#include "byteinput.h"

#include <QtCore/QMetaProperty>
#include <QtCore/QRectF>
#include <QtCore/QSizeF>
#include <QtGui/QColor>
#include <QtGui/QFont>
#include <QtWidgets/QFrame>

/// A value of the property's type that no careful program would set.
inline QVariant hostileValue(const QMetaProperty &property, ByteInput &input)
{
    // Qt's own enumerations take no value beyond their bits: there is no such thing in C++.
    if (property.isEnumType() && !qstrncmp(property.enumerator().scope(), "Qt", 2))
        return input.below(16);
    if (property.isEnumType())
        return input.flag() ? property.enumerator().value(input.below(property.enumerator().keyCount()))
                            : input.integer();
    switch (property.userType()) {
    case QMetaType::Bool:
        return input.flag();
    case QMetaType::Int:
        return input.integer();
    case QMetaType::Double:
        return input.real();
    case QMetaType::QString: {
        const int repetitions[] = {1, 1, 1, 100};
        return QString::fromLatin1(input.text(200)).repeated(input.anyOf(repetitions));
    }
    case QMetaType::QColor:
        return QColor::fromRgba(input.raw<QRgb>());
    case QMetaType::QFont: {
        QFont font;
        font.setPixelSize(1 + input.below(256));
        return font;
    }
    case QMetaType::QSizeF:
        return QSizeF{input.real(), input.real()};
    case QMetaType::QRectF:
        return QRectF{input.real(), input.real(), input.real(), input.real()};
    default:
        return {};
    }
}

/// Sets one of the object's properties, of those that its class adds to what Qt brings, unless \a isSpared.
inline void setHostileProperty(QObject *object, ByteInput &input, bool (*isSpared)(const QMetaProperty &))
{
    const QMetaObject *meta = object->metaObject();
    const QMetaObject &base
        = qobject_cast<QFrame *>(object) ? QFrame::staticMetaObject : QWidget::staticMetaObject;
    const int first = base.propertyCount();
    const QMetaProperty property = meta->property(first + input.below(meta->propertyCount() - first));
    const QVariant value = hostileValue(property, input);
    if (property.isWritable() && value.isValid() && !(isSpared && isSpared(property)))
        property.write(object, value);
}

#endif // HOSTILEPROPERTIES_H
