#ifndef DESIGNERDRIVER_H
#define DESIGNERDRIVER_H

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormEditorPluginInterface>
#include <QtDesigner/QDesignerFormWindowInterface>

/// A plug-in that sits in a running Qt Designer: it tries our widgets there, and ends Designer with 0 if all
/// is as it should be. What is not goes to standard error.
class DesignerDriver : public QObject, public QDesignerFormEditorPluginInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.Designer.QDesignerFormEditorPluginInterface")
    Q_INTERFACES(QDesignerFormEditorPluginInterface)

public:
    bool isInitialized() const override { return m_core; }
    void initialize(QDesignerFormEditorInterface *core) override;
    QAction *action() const override { return nullptr; }
    QDesignerFormEditorInterface *core() const override { return m_core; }

private:
    void start();
    void check(bool condition, const QString &sentence);
    void checkWidgetBox();
    void checkOpenedForm(QDesignerFormWindowInterface *form);
    void takePicture(QDesignerFormWindowInterface *form);
    void checkInserting(QDesignerFormWindowInterface *form);
    void checkDeleting(QDesignerFormWindowInterface *form);
    void compareLoaded(const QWidget *loaded, const QWidget *widget, int round);
    void checkSaving(QDesignerFormWindowInterface *form);

    QDesignerFormEditorInterface *m_core = nullptr;
    QTimer m_timer;
    int m_failures = 0;
};

#endif // DESIGNERDRIVER_H
