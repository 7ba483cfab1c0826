#ifndef ZRQTWIDGETPLUGIN_H
#define ZRQTWIDGETPLUGIN_H

#include <QtCore/QObject>
#include <QtCore/QSize>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

/// What the entries of all our widgets in Designer have in common. It holds no state.
class ZrQtWidgetPlugin : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ZrQtWidgetPlugin(QObject *parent);

    /// "Tessaly Widgets".
    QString group() const override;
    /// The header of the class that name() tells, for code that uic makes.
    QString includeFile() const override;
    bool isContainer() const override;
    /// Empty unless a widget has something to say.
    QString toolTip() const override;
    /// The same text as toolTip().
    QString whatsThis() const override;

protected:
    /// The text behind domXml(): a widget named after its class, of \a size pixels if that is valid, with
    /// \a description as its What's This text if there is one.
    QString formText(const QSize &size, const QString &description) const;
};

#endif // ZRQTWIDGETPLUGIN_H
