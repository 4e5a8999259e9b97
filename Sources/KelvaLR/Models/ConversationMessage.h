#pragma once

#include "Models/RawValue.h"

#include <QDateTime>
#include <QMetaType>
#include <QString>
#include <QUuid>

#include <optional>

namespace KelvaLR {

/// Who speaks a message.
enum class ConversationRole { system, user, assistant };

template <>
inline constexpr std::array<RawValueRow<ConversationRole>, 3> rawValueTable<ConversationRole>{{
    {ConversationRole::system, QLatin1StringView("system")},
    {ConversationRole::user, QLatin1StringView("user")},
    {ConversationRole::assistant, QLatin1StringView("assistant")},
}};

/// How the user is working: `quiet` only writes results, `voice` also reads command results aloud.
enum class InputMode { quiet, voice };

template <>
inline constexpr std::array<RawValueRow<InputMode>, 2> rawValueTable<InputMode>{{
    {InputMode::quiet, QLatin1StringView("quiet")},
    {InputMode::voice, QLatin1StringView("voice")},
}};

/// One entry of the conversation. A realtime transcript replaces `content` in place; `id` stays.
struct ConversationMessage
{
    QUuid id;
    ConversationRole role = ConversationRole::assistant;
    std::optional<InputMode> mode;
    QString content;
    QDateTime createdAt;

    /// A message with a fresh random id, created now.
    [[nodiscard]] static ConversationMessage make(ConversationRole role, std::optional<InputMode> mode,
                                                  const QString &content);

    bool operator==(const ConversationMessage &) const = default;
};

[[nodiscard]] size_t qHash(const ConversationMessage &message, size_t seed = 0) noexcept;

} // namespace KelvaLR

Q_DECLARE_METATYPE(KelvaLR::ConversationMessage)
