#pragma once

#include <QByteArray>
#include <QString>

#include <expected>
#include <memory>

struct lua_State;

namespace KelvaLR::Testing {

/// The JSON reader and writer of the plug-in's real Lua file, in a real Lua 5.1.
class PluginJson
{
public:
    PluginJson();

    /// Reads a text and writes what was read; or why it was refused.
    [[nodiscard]] std::expected<QByteArray, QString> readAndWrite(const QByteArray &text);

    /// Writes a string value. Any bytes.
    [[nodiscard]] QByteArray write(const QByteArray &bytes);

    [[nodiscard]] lua_State *state() const { return m_state.get(); }

private:
    void call(const char *function, const QByteArray &text);
    [[nodiscard]] QByteArray textAt(int index) const;

    std::shared_ptr<lua_State> m_state;
};

} // namespace KelvaLR::Testing
