#pragma once

#include <QWidget>

QT_BEGIN_NAMESPACE
class QHBoxLayout;
QT_END_NAMESPACE

namespace StandIn {

class CurrentModule;

/// The head of the window: whose it is, and the modules between which the user switches.
class ModulePicker : public QWidget
{
    Q_OBJECT

public:
    explicit ModulePicker(CurrentModule &module);

private:
    void addModule(QHBoxLayout &layout, const QString &title, const char *name);

    CurrentModule &m_module;
};

} // namespace StandIn
