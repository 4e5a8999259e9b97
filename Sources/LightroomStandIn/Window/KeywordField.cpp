#include "Window/KeywordField.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace StandIn {

KeywordField::KeywordField()
{
    setAccessibleName(u"Keyword"_s);
    setPlaceholderText(u"Click here to add keywords"_s);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QLineEdit::returnPressed, this, [this] {
        if (!text().trimmed().isEmpty()) {
            Q_EMIT entered(text());
        }
        leave();
    });
}

void KeywordField::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        leave();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void KeywordField::leave()
{
    clear();
    clearFocus();
    Q_EMIT left();
}

} // namespace StandIn
