#include "Window/MessageBar.h"

#include "Plugin/DialogMessage.h"
#include "Window/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPalette>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace StandIn {

MessageBar::MessageBar()
    : m_title(new QLabel)
    , m_text(new QLabel)
{
    auto *dismiss = new QPushButton(u"Dismiss"_s);
    dismiss->setFocusPolicy(Qt::TabFocus);
    connect(dismiss, &QPushButton::clicked, this, &QWidget::hide);
    m_title->setFont(Theme::headingFont());
    m_text->setObjectName(u"secondary"_s);
    m_text->setWordWrap(true);
    auto *words = new QVBoxLayout;
    words->setSpacing(Theme::unit / 2);
    words->addWidget(m_title);
    words->addWidget(m_text);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(Theme::medium, 3 * Theme::unit, Theme::medium, 3 * Theme::unit);
    layout->setSpacing(Theme::medium);
    layout->addLayout(words, 1);
    layout->addWidget(dismiss);
    setAttribute(Qt::WA_StyledBackground);
    setObjectName(u"message"_s);
    setAccessibleName(u"Message"_s);
    hide();
}

void MessageBar::present(const DialogMessage &message)
{
    const bool isBad = message.kind == "critical"_L1;
    QPalette colours = m_title->palette();
    colours.setColor(QPalette::WindowText, QColor(isBad ? Theme::failed : Theme::text));
    m_title->setPalette(colours);
    m_title->setText(message.title);
    m_text->setText(message.text);
    show();
}

} // namespace StandIn
