#include "zrqtwidgetplugin.h"

namespace {

QString sizeProperty(const QSize &size)
{
    return QStringLiteral("  <property name=\"geometry\">\n"
                          "   <rect>\n"
                          "    <x>0</x>\n"
                          "    <y>0</y>\n"
                          "    <width>%1</width>\n"
                          "    <height>%2</height>\n"
                          "   </rect>\n"
                          "  </property>\n")
        .arg(size.width())
        .arg(size.height());
}

// On purpose with a blank before the closing bracket: forms that are compared as text depend on it.
QString textProperty(const QString &name, const QString &text)
{
    return QStringLiteral("  <property name=\"%1\" >\n"
                          "   <string>%2</string>\n"
                          "  </property>\n")
        .arg(name, text);
}

/// "zrqtAxis" from "ZrQtAxis".
QString objectNameOf(const QString &className)
{
    constexpr int prefixLength = 4;
    return className.left(prefixLength).toLower() + className.mid(prefixLength);
}

} // namespace

ZrQtWidgetPlugin::ZrQtWidgetPlugin(QObject *parent)
    : QObject(parent)
{
}

QString ZrQtWidgetPlugin::group() const
{
    return QStringLiteral("Tessaly Widgets");
}

QString ZrQtWidgetPlugin::includeFile() const
{
    return QStringLiteral("ZrQtPlotWidgets/%1.h").arg(name().toLower());
}

bool ZrQtWidgetPlugin::isContainer() const
{
    return false;
}

QString ZrQtWidgetPlugin::toolTip() const
{
    return {};
}

QString ZrQtWidgetPlugin::whatsThis() const
{
    return toolTip();
}

QString ZrQtWidgetPlugin::formText(const QSize &size, const QString &description) const
{
    QString properties;
    if (size.isValid())
        properties += sizeProperty(size);
    properties += textProperty(QStringLiteral("objectName"), objectNameOf(name()));
    if (!description.isEmpty())
        properties += textProperty(QStringLiteral("whatsThis"), description);
    return QStringLiteral("<ui language=\"c++\" displayname=\"%1\">\n"
                          " <widget class=\"%1\" name=\"%1\">\n"
                          "%2"
                          " </widget>\n"
                          "</ui>\n")
        .arg(name(), properties);
}
