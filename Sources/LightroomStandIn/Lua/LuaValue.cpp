#include "Lua/LuaValue.h"

#include <algorithm>

namespace StandIn {

namespace {

const LuaValue nil;

} // namespace

const LuaValue &LuaTable::field(QByteArrayView name) const
{
    const auto found =
        std::ranges::find_if(fields, [&](const LuaField &field) { return field.name == name; });
    return found == fields.end() ? nil : found->value;
}

QString LuaValue::text() const
{
    const auto *bytes = as<QByteArray>();
    return bytes ? QString::fromUtf8(*bytes) : QString();
}

double LuaValue::number(double otherwise) const
{
    const auto *value = as<double>();
    return value ? *value : otherwise;
}

const LuaValue &argument(const LuaValues &arguments, std::size_t index)
{
    return index < arguments.size() ? arguments[index] : nil;
}

} // namespace StandIn
