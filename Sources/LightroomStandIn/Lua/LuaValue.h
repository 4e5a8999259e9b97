#pragma once

#include <QByteArray>
#include <QString>

#include <expected>
#include <functional>
#include <memory>
#include <variant>
#include <vector>

namespace StandIn {

struct LuaValue;
struct LuaField;
class LuaReference;

/// A function inside a LuaState, kept from its garbage collector while a copy of this lives.
struct LuaFunction
{
    std::shared_ptr<const LuaReference> reference;
};

/// Plain data from a Lua table: its items from 1 on, and its fields with text keys, in no order.
struct LuaTable
{
    std::vector<LuaValue> items;
    std::vector<LuaField> fields;

    /// The value of a field; nil when there is none.
    [[nodiscard]] const LuaValue &field(QByteArrayView name) const;
};

/// A value that crosses between C++ and Lua. Text is bytes, as in Lua. Userdata and threads do not cross.
struct LuaValue
{
    std::variant<std::monostate, bool, double, QByteArray, LuaFunction, LuaTable> data;

    LuaValue() = default;

    template <typename T>
        requires std::constructible_from<decltype(data), T>
    // NOLINTNEXTLINE(bugprone-forwarding-reference-overload): constrained by what the variant holds
    LuaValue(T &&value)
        : data(std::forward<T>(value))
    {
    }

    [[nodiscard]] bool isNil() const { return std::holds_alternative<std::monostate>(data); }

    /// The value when it has this type, else nothing.
    template <typename T>
    [[nodiscard]] const T *as() const
    {
        return std::get_if<T>(&data);
    }

    [[nodiscard]] QString text() const;                  ///< UTF-8 text, empty for anything else
    [[nodiscard]] double number(double otherwise) const; ///< the number, or `otherwise`
};

struct LuaField
{
    QByteArray name;
    LuaValue value;
};

using LuaValues = std::vector<LuaValue>;

/// What a call gives: its values, or the text of its error.
using LuaResult = std::expected<LuaValues, QString>;

/// A C++ function that Lua may call. Its error becomes a Lua error with that text.
using LuaPrimitive = std::function<LuaResult(const LuaValues &arguments)>;

/// An argument of a primitive; nil past the last one.
[[nodiscard]] const LuaValue &argument(const LuaValues &arguments, std::size_t index);

} // namespace StandIn
