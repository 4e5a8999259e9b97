#include "Platform/Linux/DesktopEntry.h"

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

/// Splits a command as a shell would, but expands nothing. That is wider than what entries may hold: those
/// that Wine writes have quotes inside an argument and backslashes outside of quotes.
class CommandSplitter
{
public:
    explicit CommandSplitter(QStringView command)
        : m_rest(command)
    {
    }

    /// None when a quote stays open.
    std::optional<QStringList> split()
    {
        while (!m_rest.isEmpty()) {
            const QChar c = take();
            if (m_quote.isNull() && c.isSpace()) {
                endArgument();
            } else {
                m_isInArgument = true;
                read(c);
            }
        }
        endArgument();
        return m_quote.isNull() ? std::optional(m_arguments) : std::nullopt;
    }

private:
    QChar take()
    {
        const QChar first = m_rest.front();
        m_rest = m_rest.sliced(1);
        return first;
    }

    void read(QChar c)
    {
        const bool opens = m_quote.isNull() && (c == u'"' || c == u'\'');
        if (opens || (!m_quote.isNull() && c == m_quote)) {
            m_quote = opens ? c : QChar();
        } else {
            m_argument += escapesNext(c) ? take() : c;
        }
    }

    [[nodiscard]] bool escapesNext(QChar c) const
    {
        if (c != u'\\' || m_rest.isEmpty() || m_quote == u'\'') {
            return false;
        }
        return m_quote.isNull() || u"\"`$\\"_s.contains(m_rest.front());
    }

    void endArgument()
    {
        if (m_isInArgument) {
            m_arguments.append(std::exchange(m_argument, QString()));
            m_isInArgument = false;
        }
    }

    QStringView m_rest;
    QStringList m_arguments;
    QString m_argument;
    QChar m_quote;
    bool m_isInArgument = false;
};

/// What a field code inside an argument stands for when no file is opened; none where there is no such code.
std::optional<QString> valueOfField(QChar code, const DesktopEntry &entry)
{
    switch (code.unicode()) {
    case u'%':
        return u"%"_s;
    case u'c':
        return entry.name;
    case u'k':
        return entry.path;
    default:
        constexpr QStringView filesAndRetiredCodes = u"fFuUidDnNvm";
        return filesAndRetiredCodes.contains(code) ? std::optional(QString()) : std::nullopt;
    }
}

std::optional<QString> withFields(const QString &argument, const DesktopEntry &entry)
{
    QString text;
    for (qsizetype i = 0; i < argument.size(); ++i) {
        if (argument[i] != u'%') {
            text += argument[i];
            continue;
        }
        const auto value =
            ++i < argument.size() ? valueOfField(argument[i], entry) : std::optional<QString>();
        if (!value) {
            return std::nullopt;
        }
        text += *value;
    }
    return text;
}

/// An argument that is a field code alone goes with its value; one that is a quoted nothing stays.
std::optional<QStringList> argumentsOf(const QString &argument, const DesktopEntry &entry)
{
    if (argument == "%i"_L1) {
        return entry.icon.isEmpty() ? QStringList() : QStringList{u"--icon"_s, entry.icon};
    }
    const auto text = withFields(argument, entry);
    if (!text) {
        return std::nullopt;
    }
    return text->isEmpty() && !argument.isEmpty() ? QStringList() : QStringList(*text);
}

} // namespace

std::optional<QStringList> commandLine(const DesktopEntry &entry)
{
    const auto parts = CommandSplitter(entry.exec).split();
    if (!parts) {
        return std::nullopt;
    }
    QStringList command;
    for (const QString &part : *parts) {
        const auto arguments = argumentsOf(part, entry);
        if (!arguments) {
            return std::nullopt;
        }
        command += *arguments;
    }
    const bool namesProgram = !command.isEmpty() && !command.first().isEmpty();
    return namesProgram ? std::optional(command) : std::nullopt;
}

} // namespace KelvaLR
