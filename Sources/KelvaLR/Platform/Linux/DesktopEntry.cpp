#include "Platform/Linux/DesktopEntry.h"

#include <algorithm>
#include <array>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

struct TextKey
{
    QByteArrayView key;
    QString DesktopEntry::*text;
};

constexpr std::array textKeys{
    TextKey{"Type", &DesktopEntry::type},
    TextKey{"Name", &DesktopEntry::name},
    TextKey{"Icon", &DesktopEntry::icon},
    TextKey{"Exec", &DesktopEntry::exec},
    TextKey{"TryExec", &DesktopEntry::tryExec},
    TextKey{"Path", &DesktopEntry::workingFolder},
    TextKey{"StartupWMClass", &DesktopEntry::windowClass},
    TextKey{"OnlyShowIn", &DesktopEntry::onlyShowIn},
    TextKey{"NotShowIn", &DesktopEntry::notShowIn},
};

struct FlagKey
{
    QByteArrayView key;
    bool DesktopEntry::*flag;
};

constexpr std::array flagKeys{
    FlagKey{"Hidden", &DesktopEntry::isHidden},
    FlagKey{"NoDisplay", &DesktopEntry::isUnlisted},
    FlagKey{"Terminal", &DesktopEntry::needsTerminal},
};

QChar escaped(QChar letter)
{
    switch (letter.unicode()) {
    case u's':
        return u' ';
    case u'n':
        return u'\n';
    case u't':
        return u'\t';
    case u'r':
        return u'\r';
    default:
        return letter;
    }
}

/// A backslash before any other character stays, as a command may mean it for itself.
QString unescaped(QByteArrayView value)
{
    const QString raw = QString::fromUtf8(value);
    QString text;
    for (qsizetype i = 0; i < raw.size(); ++i) {
        if (raw[i] == u'\\' && i + 1 < raw.size() && u"sntr\\"_s.contains(raw[i + 1])) {
            text += escaped(raw[++i]);
        } else {
            text += raw[i];
        }
    }
    return text;
}

void assign(DesktopEntry &entry, QByteArrayView key, QByteArrayView value)
{
    if (const auto *row = std::ranges::find(textKeys, key, &TextKey::key); row != textKeys.end()) {
        entry.*(row->text) = unescaped(value);
    }
    if (const auto *row = std::ranges::find(flagKeys, key, &FlagKey::key); row != flagKeys.end()) {
        entry.*(row->flag) = value == "true";
    }
}

/// Takes the first line off the text.
QByteArrayView takeLine(QByteArrayView &text)
{
    const qsizetype end = text.indexOf('\n');
    const QByteArrayView line = end < 0 ? text : text.first(end);
    text = end < 0 ? QByteArrayView() : text.sliced(end + 1);
    return line.trimmed();
}

} // namespace

std::optional<DesktopEntry> parsedDesktopEntry(QByteArrayView text)
{
    std::optional<DesktopEntry> entry;
    while (!text.isEmpty()) {
        const QByteArrayView line = takeLine(text);
        if (line.startsWith('[')) {
            if (entry) {
                break; // what follows are actions of the application
            }
            if (line == "[Desktop Entry]") {
                entry.emplace();
            }
            continue;
        }
        const qsizetype equals = line.indexOf('=');
        if (entry && equals > 0) {
            assign(*entry, line.first(equals).trimmed(), line.sliced(equals + 1).trimmed());
        }
    }
    return entry;
}

} // namespace KelvaLR
