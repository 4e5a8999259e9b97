#include "Models/ConversationMessage.h"

#include <QHashFunctions>

namespace KelvaLR {

ConversationMessage ConversationMessage::make(ConversationRole role, std::optional<InputMode> mode,
                                              const QString &content)
{
    return {QUuid::createUuid(), role, mode, content, QDateTime::currentDateTime()};
}

size_t qHash(const ConversationMessage &message, size_t seed) noexcept
{
    const int mode = message.mode ? static_cast<int>(*message.mode) : -1;
    return qHashMulti(seed, message.id, static_cast<int>(message.role), mode, message.content,
                      message.createdAt);
}

} // namespace KelvaLR
