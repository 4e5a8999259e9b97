#include "App/ConversationPrinter.h"

#include "Stores/AppModel.h"
#include "Support/OrderedJsonObject.h"

#include <algorithm>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

/// A file name or a reply may hold control characters; a terminal would obey them.
QString withoutControlCharacters(QString text)
{
    std::ranges::replace_if(
        text, [](QChar c) { return c.category() == QChar::Other_Control && c != u'\n' && c != u'\t'; },
        QChar(QChar::ReplacementCharacter));
    return text;
}

QString indented(const QString &text)
{
    QStringList lines = text.split(u'\n');
    for (QString &line : lines) {
        line = line.isEmpty() ? line : u"    "_s + line;
    }
    return lines.join(u'\n');
}

OrderedJsonObject asJson(const ConversationMessage &message)
{
    OrderedJsonObject object;
    object.add("role"_L1, rawValue(message.role))
        .add("mode"_L1, message.mode ? QJsonValue(rawValue(*message.mode)) : QJsonValue())
        .add("content"_L1, message.content);
    return object;
}

OrderedJsonObject asJson(const Artifact &artifact)
{
    OrderedJsonObject object;
    object.add("kind"_L1, rawValue(artifact.kind))
        .add("title"_L1, artifact.title)
        .add("status"_L1, rawValue(artifact.status))
        .add("body"_L1, artifact.body);
    return object;
}

} // namespace

ConversationPrinter::ConversationPrinter(const AppModel &model, OutputFormat format, Echo echo,
                                         std::FILE *output)
    : m_format(format)
    , m_echo(echo)
    , m_output(output)
{
    connect(&model, &AppModel::messageAppended, this,
            [this](const ConversationMessage &message) { print(message); });
    connect(&model, &AppModel::artifactAppended, this, [this](const Artifact &artifact) { print(artifact); });
}

void ConversationPrinter::print(const ConversationMessage &message)
{
    if (m_format == OutputFormat::json) {
        writeLine(OrderedJsonObject().add("message"_L1, asJson(message)).toJson());
        return;
    }
    if (message.role != ConversationRole::user) {
        writeLine(withoutControlCharacters(message.content).toUtf8());
    } else if (m_echo == Echo::on) {
        writeLine("> " + withoutControlCharacters(message.content).toUtf8());
    }
}

void ConversationPrinter::print(const Artifact &artifact)
{
    if (m_format == OutputFormat::json) {
        writeLine(OrderedJsonObject().add("artifact"_L1, asJson(artifact)).toJson());
        return;
    }
    writeLine(u"  [%1, %2]\n%3"_s
                  .arg(withoutControlCharacters(artifact.title), rawValue(artifact.status),
                       indented(withoutControlCharacters(artifact.body)))
                  .toUtf8());
}

void ConversationPrinter::writeLine(const QByteArray &line)
{
    const QByteArray bytes = line + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), m_output);
    std::fflush(m_output);
}

} // namespace KelvaLR
