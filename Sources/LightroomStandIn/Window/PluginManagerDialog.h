#pragma once

#include <QDialog>

QT_BEGIN_NAMESPACE
class QFormLayout;
class QLabel;
QT_END_NAMESPACE

namespace StandIn {

class PluginHost;

/// Says which plug-in is there and how it does.
class PluginManagerDialog : public QDialog
{
    Q_OBJECT

public:
    PluginManagerDialog(PluginHost &host, QWidget *parent);

Q_SIGNALS:
    void failed(const QString &sentence); ///< the plug-in could not be loaded again

private:
    [[nodiscard]] QLabel *addFact(QFormLayout &facts, const QString &title);
    void reload();
    void present();

    PluginHost &m_host;
    QLabel *m_name;
    QLabel *m_path;
    QLabel *m_status;
};

} // namespace StandIn
