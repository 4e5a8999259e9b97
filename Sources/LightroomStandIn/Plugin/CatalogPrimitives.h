#pragma once

#include "Lua/LuaState.h"

namespace StandIn {

class Catalog;
class PresetLibrary;

/// The functions by which the SDK's catalog and photos reach the stand-in's. Photos and presets are numbers.
/// Write access is the facades' affair. The catalog and the presets must outlive the state.
[[nodiscard]] LuaTable catalogPrimitives(LuaState &state, Catalog &catalog, const PresetLibrary &presets);

/// folders() → a list of {name, presets = a list of {name, id}}.
[[nodiscard]] LuaTable presetPrimitives(LuaState &state, const PresetLibrary &presets);

} // namespace StandIn
