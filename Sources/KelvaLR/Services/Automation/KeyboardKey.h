#pragma once

#include "Models/KeyModifiers.h"

#include <QString>

#include <optional>

namespace KelvaLR {

/// A key with its modifiers, as a person describes it ("cmd shift z").
struct KeyboardKey
{
    QString displayName;            ///< for messages, such as "Command-Shift-Z"
    std::optional<quint16> keyCode; ///< macOS virtual key code of the US layout; none for an unknown key name
    KeyModifiers modifiers;

    /// Reads a key description; pieces are separated by blanks only. None when it names no main key.
    [[nodiscard]] static std::optional<KeyboardKey> parse(const QString &description);

    /// The code of a lower-case key name, which must match the table as a whole.
    [[nodiscard]] static std::optional<quint16> keyCodeFor(QStringView keyName);

    /// The modifiers in the order Command, Shift, Option, Control and the key name in title case, joined by
    /// hyphens.
    [[nodiscard]] static QString displayNameFor(const QString &keyName, KeyModifiers modifiers);

    bool operator==(const KeyboardKey &) const = default;
};

} // namespace KelvaLR
