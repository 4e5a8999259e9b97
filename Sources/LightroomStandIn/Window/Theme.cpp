#include "Window/Theme.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

using namespace Qt::StringLiterals;

namespace StandIn::Theme {

namespace {

/// $names are replaced by the tokens.
constexpr QStringView rules = uR"(
QMenuBar { background: $window; padding: 2px 8px; }
QMenuBar::item { padding: 4px 10px; border-radius: 6px; background: transparent; }
QMenuBar::item:selected { background: $control; }
QMenu { background: $panel; border: 1px solid $hairline; padding: 6px; }
QMenu::item { padding: 6px 28px 6px 14px; min-width: 150px; border-radius: 6px; }
QMenu::item:selected { background: $accent; color: white; }
QMenu::item:disabled { color: $groove; }
QMenu::separator { height: 1px; background: $hairline; margin: 6px 8px; }
QToolTip { background: $control; color: $text; border: 1px solid $hairline; padding: 4px; }
QPushButton { background: $control; border: 2px solid transparent; border-radius: 8px; padding: 6px 16px; }
QPushButton:hover { background: $hairline; }
QPushButton:pressed { background: $groove; }
QPushButton:focus { border-color: $accent; }
QPushButton#module { background: transparent; color: $secondary; padding: 4px 12px; }
QPushButton#module:hover { color: $text; }
QPushButton#module:checked { color: $text; background: $control; }
QLineEdit { background: $control; border: 2px solid $control; border-radius: 8px; padding: 4px 10px;
            selection-background-color: $accent; }
QLineEdit:focus { border-color: $accent; }
QLabel#secondary { color: $secondary; }
QLabel#heading { color: $text; }
QWidget#hairline { background: $hairline; }
QWidget#panel, QScrollArea#panel { background: $panel; border: none; }
QWidget#message { background: $control; }
QScrollBar:vertical { background: transparent; width: 10px; margin: 0; }
QScrollBar:horizontal { background: transparent; height: 10px; margin: 0; }
QScrollBar::handle { background: $groove; border-radius: 3px; margin: 2px; min-height: 32px; min-width: 32px; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QListView { background: $window; border: none; outline: none; }
)";

QString styleSheet()
{
    QString sheet = rules.toString();
    for (const auto &[name, colour] : {std::pair{u"$window"_s, window},
                                       {u"$panel"_s, panel},
                                       {u"$control"_s, control},
                                       {u"$hairline"_s, hairline},
                                       {u"$groove"_s, groove},
                                       {u"$text"_s, text},
                                       {u"$secondary"_s, secondaryText},
                                       {u"$accent"_s, accent}}) {
        sheet.replace(name, QColor(colour).name());
    }
    return sheet;
}

QPalette palette()
{
    QPalette colours{QColor(control), QColor(window)};
    colours.setColor(QPalette::Base, QColor(panel));
    colours.setColor(QPalette::Highlight, QColor(accent));
    colours.setColor(QPalette::HighlightedText, Qt::white);
    colours.setColor(QPalette::PlaceholderText, QColor(secondaryText));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        colours.setColor(role, QColor(text));
        colours.setColor(QPalette::Disabled, role, QColor(groove));
    }
    return colours;
}

QFont inter(int pixels, QFont::Weight weight = QFont::Normal)
{
    QFont font(u"Inter"_s);
    font.setPixelSize(pixels);
    font.setWeight(weight);
    return font;
}

} // namespace

QFont font()
{
    return inter(13);
}

QFont smallFont()
{
    return inter(12);
}

QFont headingFont()
{
    return inter(13, QFont::DemiBold);
}

void apply(QApplication &application)
{
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setPalette(palette());
    QApplication::setFont(font());
    application.setStyleSheet(styleSheet());
}

} // namespace StandIn::Theme
