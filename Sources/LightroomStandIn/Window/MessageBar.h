#pragma once

#include <QWidget>

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

namespace StandIn {

struct DialogMessage;

/// The latest message to the user, until it is dismissed. Nothing waits for it.
class MessageBar : public QWidget
{
    Q_OBJECT

public:
    MessageBar();

    void present(const DialogMessage &message);

private:
    QLabel *m_title;
    QLabel *m_text;
};

} // namespace StandIn
