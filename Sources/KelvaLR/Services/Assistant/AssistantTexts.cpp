#include "Services/Assistant/AssistantTexts.h"

#include <QFile>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

QString embeddedText(QLatin1StringView name)
{
    QFile file(":/assistant/"_L1 + name);
    [[maybe_unused]] const bool isOpen = file.open(QFile::ReadOnly);
    Q_ASSERT(isOpen);
    return QString::fromUtf8(file.readAll());
}

} // namespace

QString chatSystemPrompt()
{
    return embeddedText("chat-system-prompt.txt"_L1);
}

QString realtimeInstructions()
{
    return embeddedText("realtime-instructions.txt"_L1);
}

} // namespace KelvaLR
