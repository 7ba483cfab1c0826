#include "shared/quiettest.h"

#include <QtCore/QBuffer>
#include <QtCore/QCborMap>
#include <QtCore/QCborValue>
#include <QtCore/QDataStream>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonObject>
#include <QtCore/QPluginLoader>
#include <QtCore/QtEndian>
#include <QtGui/QIcon>
#include <QtGui/QImage>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtWidgets/QWidget>

#ifdef Q_OF_ELF
#include <link.h>
#endif

#include <cstring>
#include <memory>

namespace {

const QString iid = QStringLiteral("org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface");
const QString libraryFile = QStringLiteral(LIBRARY_FILE);

QByteArray contentOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

#ifdef Q_OF_ELF
template <typename T> T at(const QByteArray &file, quint64 offset)
{
    T value;
    std::memcpy(&value, file.constData() + offset, sizeof(T));
    return value;
}

/// The contents of all sections whose name begins with \a prefix.
QList<QByteArray> sections(const QByteArray &file, const char *prefix)
{
    QList<QByteArray> result;
    const auto header = at<ElfW(Ehdr)>(file, 0);
    const auto section
        = [&](int i) { return at<ElfW(Shdr)>(file, header.e_shoff + quint64(i) * header.e_shentsize); };
    const quint64 names = section(header.e_shstrndx).sh_offset;
    for (int i = 0; i < header.e_shnum; ++i) {
        const ElfW(Shdr) found = section(i);
        if (qstrncmp(file.constData() + names + found.sh_name, prefix, qstrlen(prefix)) == 0)
            result.append(file.mid(int(found.sh_offset), int(found.sh_size)));
    }
    return result;
}
#endif

} // namespace

namespace {

/// The file that an icon was made of, which only the stream of an icon tells.
QString fileOf(const QIcon &icon)
{
    QBuffer buffer;
    buffer.open(QIODevice::ReadWrite);
    QDataStream stream(&buffer);
    stream << icon;
    buffer.seek(0);
    QString engine;
    int count = 0;
    QPixmap pixmap;
    QString file;
    stream >> engine >> count >> pixmap >> file;
    return file;
}

} // namespace

class tst_DesignerPlugin : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void metaData();
    void metaDataSection();
    void collection();
    void entries_data();
    void entries();
    void formTexts_data();
    void formTexts();
    void images();
    void iconsDiffer();

private:
    QDesignerCustomWidgetInterface *entry(int index) const { return m_entries.at(index); }

    QPluginLoader m_loader{libraryFile};
    QList<QDesignerCustomWidgetInterface *> m_entries;
};

void tst_DesignerPlugin::initTestCase()
{
    auto *collection = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(m_loader.instance());
    QVERIFY2(collection, qPrintable(m_loader.errorString()));
    m_entries = collection->customWidgets();
    QCOMPARE(m_entries.size(), 7);
}

void tst_DesignerPlugin::metaData()
{
    const QJsonObject metaData = m_loader.metaData();
    QCOMPARE(metaData.value(QStringLiteral("IID")).toString(), iid);
    QCOMPARE(metaData.value(QStringLiteral("className")).toString(), QStringLiteral("ZrQtPlotCollection"));
    QVERIFY(metaData.value(QStringLiteral("MetaData")).toObject().isEmpty());
}

// Read from ELF files only.
void tst_DesignerPlugin::metaDataSection()
{
#ifdef Q_OF_ELF
    const QList<QByteArray> found = sections(contentOf(libraryFile), ".qtmetad");
    QCOMPARE(found.size(), 1);

    // The format, the version of Qt, and the flags, which are 0 in a release build.
    QByteArray header("QTMETADATA !");
    header.append('\0').append(char(QT_VERSION_MAJOR)).append(char(QT_VERSION_MINOR));
#ifdef QT_NO_DEBUG
    header.append('\0');
#else
    header.append(found.first().at(header.size()));
#endif
    QCOMPARE(found.first().left(header.size()), header);

    const QCborMap map = QCborValue::fromCbor(found.first().mid(header.size())).toMap();
    QCOMPARE(map, (QCborMap{{2, iid}, {3, QStringLiteral("ZrQtPlotCollection")}}));
#endif
}

void tst_DesignerPlugin::collection()
{
    QObject *instance = m_loader.instance();
    QCOMPARE(instance->metaObject()->className(), "ZrQtPlotCollection");
    QCOMPARE(QPluginLoader(libraryFile).instance(), instance);

    // A list of its own for each caller; the plug-ins belong to the collection.
    auto *collection = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(instance);
    collection->customWidgets().clear();
    QCOMPARE(collection->customWidgets(), m_entries);
    QCOMPARE(instance->children().size(), m_entries.size());
    for (int i = 0; i < m_entries.size(); ++i) {
        auto *plugin = dynamic_cast<QObject *>(entry(i));
        QVERIFY(plugin);
        QCOMPARE(plugin->parent(), instance);
        QCOMPARE(qobject_cast<QDesignerCustomWidgetInterface *>(plugin), entry(i));
        QCOMPARE(QLatin1String(plugin->metaObject()->className()),
                 QString(entry(i)->name() + QLatin1String("Plugin")));
    }
    QVERIFY(entry(0) != entry(4));
}

void tst_DesignerPlugin::entries_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("includeFile");
    QTest::addColumn<bool>("isContainer");
    QTest::addColumn<QString>("toolTip");

    const QString control = QStringLiteral("A Widget to control the appearance of a plot channel.");
    const QString slider = QStringLiteral("A graphical slider widget to control a qplot widget");
    const auto add = [](int index, const char *name, const char *file, bool isContainer,
                        const QString &toolTip = QString()) {
        QTest::addRow("%d: %s", index, name)
            << index << QString::fromLatin1(name) << QString::fromLatin1(file) << isContainer << toolTip;
    };
    add(0, "ZrQtPlot", "ZrQtPlotWidgets/zrqtplot.h", true);
    add(1, "ZrQtPlotChannelEdit", "ZrQtPlotWidgets/zrqtplotchanneledit.h", false, control);
    add(2, "ZrQtAxis", "ZrQtPlotWidgets/zrqtaxis.h", false);
    add(3, "ZrQtPlotChannel", "ZrQtPlotWidgets/zrqtplotchannel.h", false);
    add(4, "ZrQtPlot", "ZrQtPlotWidgets/zrqtplot.h", true);
    add(5, "ZrQtPlotSlider", "ZrQtPlotWidgets/zrqtplotslider.h", false, slider);
    add(6, "ZrQtBufferedChannel", "ZrQtPlotWidgets/zrqtbufferedchannel.h", false);
}

void tst_DesignerPlugin::entries()
{
    QFETCH(const int, index);
    QFETCH(const QString, name);
    QFETCH(const QString, includeFile);
    QFETCH(const bool, isContainer);
    QFETCH(const QString, toolTip);

    QDesignerCustomWidgetInterface *plugin = entry(index);
    QCOMPARE(plugin->name(), name);
    QCOMPARE(plugin->group(), QStringLiteral("Tessaly Widgets"));
    QCOMPARE(plugin->includeFile(), includeFile);
    QCOMPARE(plugin->isContainer(), isContainer);
    QCOMPARE(plugin->toolTip(), toolTip);
    QCOMPARE(plugin->whatsThis(), toolTip);
    QVERIFY(plugin->codeTemplate().isEmpty());
    plugin->initialize(nullptr);
    QVERIFY(!plugin->isInitialized());

    // On purpose one path is without the slash.
    const QString file = QStringLiteral("images/%1.png").arg(name.toLower());
    const bool isPlotChannel = name == QLatin1String("ZrQtPlotChannel");
    QCOMPARE(fileOf(plugin->icon()), (isPlotChannel ? QLatin1String(":") : QLatin1String(":/")) + file);
    QCOMPARE(plugin->icon().availableSizes(), QList<QSize>{QSize(64, 64)});
    QCOMPARE(plugin->icon().pixmap(64).toImage().convertToFormat(QImage::Format_ARGB32),
             QImage(QLatin1String(":/") + file).convertToFormat(QImage::Format_ARGB32));

    QWidget parent;
    const std::unique_ptr<QWidget> widget(plugin->createWidget(&parent));
    QCOMPARE(QLatin1String(widget->metaObject()->className()), name);
    QCOMPARE(widget->parentWidget(), &parent);
    const std::unique_ptr<QWidget> window(plugin->createWidget(nullptr));
    QCOMPARE(window->parentWidget(), nullptr);
}

void tst_DesignerPlugin::formTexts_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QByteArray>("text");

    const QByteArray plot = "<ui language=\"c++\" displayname=\"ZrQtPlot\">\n"
                            " <widget class=\"ZrQtPlot\" name=\"ZrQtPlot\">\n"
                            "  <property name=\"geometry\">\n"
                            "   <rect>\n"
                            "    <x>0</x>\n"
                            "    <y>0</y>\n"
                            "    <width>200</width>\n"
                            "    <height>200</height>\n"
                            "   </rect>\n"
                            "  </property>\n"
                            "  <property name=\"objectName\" >\n"
                            "   <string>zrqtPlot</string>\n"
                            "  </property>\n"
                            " </widget>\n"
                            "</ui>\n";
    QTest::newRow("plot") << 0 << plot;
    QTest::newRow("channel edit")
        << 1
        << QByteArray("<ui language=\"c++\" displayname=\"ZrQtPlotChannelEdit\">\n"
                      " <widget class=\"ZrQtPlotChannelEdit\" name=\"ZrQtPlotChannelEdit\">\n"
                      "  <property name=\"geometry\">\n"
                      "   <rect>\n"
                      "    <x>0</x>\n"
                      "    <y>0</y>\n"
                      "    <width>200</width>\n"
                      "    <height>40</height>\n"
                      "   </rect>\n"
                      "  </property>\n"
                      "  <property name=\"objectName\" >\n"
                      "   <string>zrqtPlotChannelEdit</string>\n"
                      "  </property>\n"
                      "  <property name=\"whatsThis\" >\n"
                      "   <string>A Widget to control the appearance of a plot channel.</string>\n"
                      "  </property>\n"
                      " </widget>\n"
                      "</ui>\n");
    QTest::newRow("axis") << 2
                          << QByteArray("<ui language=\"c++\" displayname=\"ZrQtAxis\">\n"
                                        " <widget class=\"ZrQtAxis\" name=\"ZrQtAxis\">\n"
                                        "  <property name=\"objectName\" >\n"
                                        "   <string>zrqtAxis</string>\n"
                                        "  </property>\n"
                                        "  <property name=\"whatsThis\" >\n"
                                        "   <string>A graph axis widget</string>\n"
                                        "  </property>\n"
                                        " </widget>\n"
                                        "</ui>\n");
    QTest::newRow("plot channel") << 3
                                  << QByteArray(
                                         "<ui language=\"c++\" displayname=\"ZrQtPlotChannel\">\n"
                                         " <widget class=\"ZrQtPlotChannel\" name=\"ZrQtPlotChannel\">\n"
                                         "  <property name=\"objectName\" >\n"
                                         "   <string>zrqtPlotChannel</string>\n"
                                         "  </property>\n"
                                         "  <property name=\"whatsThis\" >\n"
                                         "   <string>A graph axis widget</string>\n"
                                         "  </property>\n"
                                         " </widget>\n"
                                         "</ui>\n");
    QTest::newRow("plot again") << 4 << plot;
    QTest::newRow("slider") << 5
                            << QByteArray(
                                   "<ui language=\"c++\" displayname=\"ZrQtPlotSlider\">\n"
                                   " <widget class=\"ZrQtPlotSlider\" name=\"ZrQtPlotSlider\">\n"
                                   "  <property name=\"geometry\">\n"
                                   "   <rect>\n"
                                   "    <x>0</x>\n"
                                   "    <y>0</y>\n"
                                   "    <width>200</width>\n"
                                   "    <height>40</height>\n"
                                   "   </rect>\n"
                                   "  </property>\n"
                                   "  <property name=\"objectName\" >\n"
                                   "   <string>zrqtPlotSlider</string>\n"
                                   "  </property>\n"
                                   "  <property name=\"whatsThis\" >\n"
                                   "   <string>A graphical slider widget to control a qplot widget</string>\n"
                                   "  </property>\n"
                                   " </widget>\n"
                                   "</ui>\n");
    QTest::newRow("buffered channel")
        << 6
        << QByteArray("<ui language=\"c++\" displayname=\"ZrQtBufferedChannel\">\n"
                      " <widget class=\"ZrQtBufferedChannel\" name=\"ZrQtBufferedChannel\">\n"
                      "  <property name=\"objectName\" >\n"
                      "   <string>zrqtBufferedChannel</string>\n"
                      "  </property>\n"
                      "  <property name=\"whatsThis\" >\n"
                      "   <string>A graph axis widget</string>\n"
                      "  </property>\n"
                      " </widget>\n"
                      "</ui>\n");
}

void tst_DesignerPlugin::formTexts()
{
    QFETCH(const int, index);
    QFETCH(const QByteArray, text);
    QCOMPARE(entry(index)->domXml().toUtf8(), text);
}

// Six icons and the image of the library, as PNG of 8 bits in the colour types RGB (2) or RGBA (6).
void tst_DesignerPlugin::images()
{
    const QDir folder(QStringLiteral(":/images"));
    const QStringList files = folder.entryList();
    QCOMPARE(files.size(), 7);
    QMap<quint32, int> count;
    for (const QString &file : files) {
        QVERIFY2(file.endsWith(QLatin1String(".png")), qPrintable(file));
        const QByteArray png = contentOf(folder.filePath(file));
        QVERIFY(png.startsWith("\x89PNG\r\n\x1a\n"));
        const auto number = [&png](int offset) { return qFromBigEndian<quint32>(png.constData() + offset); };
        QCOMPARE(number(16), number(20));
        ++count[number(16)];
        QCOMPARE(int(png.at(24)), 8);
        QVERIFY2(png.at(25) == 2 || png.at(25) == 6, qPrintable(file));
    }
    QCOMPARE(count, (QMap<quint32, int>{{64, 6}, {256, 1}}));
    QCOMPARE(QDir(QStringLiteral(IMAGE_FOLDER)).entryList(QDir::Files), files);
}

// At the size at which Designer shows them, and by more than a shade.
void tst_DesignerPlugin::iconsDiffer()
{
    constexpr int side = 22;
    const auto small = [this](int index) {
        const QImage icon = entry(index)->icon().pixmap(64).toImage();
        return icon.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_ARGB32);
    };
    for (int a = 0; a < m_entries.size(); ++a) {
        for (int b = 0; b < a; ++b) {
            int differing = 0;
            const QImage imageA = small(a);
            const QImage imageB = small(b);
            for (int i = 0; i < side * side; ++i) {
                const QColor first = imageA.pixelColor(i % side, i / side);
                const QColor second = imageB.pixelColor(i % side, i / side);
                const int distance = qAbs(first.red() - second.red()) + qAbs(first.green() - second.green())
                                     + qAbs(first.blue() - second.blue());
                differing += distance > 60 ? 1 : 0;
            }
            const bool bothPlots = entry(a)->name() == entry(b)->name();
            const int least = side * side / 10;
            QVERIFY2(
                bothPlots ? differing == 0 : differing > least,
                qPrintable(
                    QStringLiteral("%1, %2: %3").arg(entry(a)->name(), entry(b)->name()).arg(differing)));
        }
    }
}

QTEST_MAIN(tst_DesignerPlugin)

#include "tst_designer_plugin.moc"
