#ifndef ZRQTPLOTCHANNELEDIT_H
#define ZRQTPLOTCHANNELEDIT_H

#include "zrqtplotwidgets_global.h"

#include <QtCore/QScopedPointer>
#include <QtGui/QColor>
#include <QtWidgets/QFrame>

class ZrQtBaseChannel;
class ZrQtPlotChannelEditPrivate;

/// Stands for one channel in a user interface: a button in the channel's colour that shows and hides the
/// channel, and the channel's name.
///
/// \code
/// auto *edit = new ZrQtPlotChannelEdit(channel->name(), panel);
/// edit->setPlotChannel(channel);
/// edit->findChild<QPushButton *>(QStringLiteral("colorBox"))->show(); // to let the user choose the colour
/// \endcode
///
/// The button is filled while the channel is visible, and white with a border in the colour while it is not.
/// Below it stands a second button that opens a colour dialog and gives the chosen colour to the channel's
/// lines; it is the child named "colorBox" and hidden until the application shows it. On purpose a dialog
/// that is cancelled applies the invalid colour that it returns: the control and the lines become black.
///
/// **Ownership.** The channel is not owned. If it is deleted, the control is simply uncoupled.
///
/// **Thread.** Only to be used in the GUI thread.
class ZRQTPLOTWIDGETS_EXPORT ZrQtPlotChannelEdit : public QFrame
{
    Q_OBJECT

    Q_PROPERTY(QString channelName READ channelName WRITE setChannelName)

public:
    /// Creates a control that shows \a name, black, unchecked and coupled to no channel.
    explicit ZrQtPlotChannelEdit(const QString &name, QWidget *parent = nullptr);
    /// Creates a control with the name "Unnamed Channel".
    explicit ZrQtPlotChannelEdit(QWidget *parent = nullptr);
    ~ZrQtPlotChannelEdit() override;

    /// The text shown beside the button. It is not taken from the channel, nor given to it.
    QString channelName() const;
    void setChannelName(const QString &channelName);

    /// The colour of the control. Default: black. The setter does not touch the channel. Alpha is stored, but
    /// not shown; an invalid colour is stored and shown as black.
    QColor channelColor() const;
    void setChannelColor(const QColor &color);

    /// Whether the button is checked, that is, shows its channel as visible. The setter does not touch the
    /// channel.
    bool channelVisible() const;
    void setChannelVisible(bool visible);

    /// Couples the control to \a channel: it takes the channel's line colour and its selection for display,
    /// and from now on the button shows and hides the channel, and follows when the channel is shown or
    /// hidden by others. The channel coupled before is let go; a null pointer only lets go and leaves the
    /// looks.
    ///
    /// The button follows what is seen: it also becomes unchecked when the channel disappears because a
    /// parent of it is hidden.
    void setPlotChannel(ZrQtBaseChannel *channel);

    /// Follows the visibility of channels; consumes no event.
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// For applications that have a use for it; the control itself never emits it.
    void channelNameChanged(QString channelName);

protected:
    void changeEvent(QEvent *event) override;

private:
    Q_DISABLE_COPY(ZrQtPlotChannelEdit)
    Q_DECLARE_PRIVATE_D(m_d, ZrQtPlotChannelEdit)

    QScopedPointer<ZrQtPlotChannelEditPrivate> m_d;
};

#endif // ZRQTPLOTCHANNELEDIT_H
