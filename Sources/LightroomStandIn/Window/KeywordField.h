#pragma once

#include <QLineEdit>

namespace StandIn {

/// Takes keywords for the active photo. Return adds them, Escape does not; both leave the field, and it is
/// empty again.
class KeywordField : public QLineEdit
{
    Q_OBJECT

public:
    KeywordField();

Q_SIGNALS:
    void entered(const QString &words);
    void left();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void leave();
};

} // namespace StandIn
