#ifndef ZRQTPLOTCOLLECTION_H
#define ZRQTPLOTCOLLECTION_H

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

/// Makes the library a plug-in: the entries that Qt Designer, and everything else that reads its forms, finds
/// in it.
class ZrQtPlotCollection : public QObject, public QDesignerCustomWidgetCollectionInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    explicit ZrQtPlotCollection(QObject *parent = nullptr);

    QList<QDesignerCustomWidgetInterface *> customWidgets() const override;

private:
    QList<QDesignerCustomWidgetInterface *> m_widgets;
};

#endif // ZRQTPLOTCOLLECTION_H
