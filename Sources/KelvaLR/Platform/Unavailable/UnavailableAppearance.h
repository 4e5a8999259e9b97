#pragma once

#include "Platform/Appearance.h"

namespace KelvaLR {

/// Of a desktop that says nothing about it: light, with motion.
class UnavailableAppearance final : public Appearance
{
    Q_OBJECT

public:
    using Appearance::Appearance;

    bool isDark() const override { return false; }

    bool isMotionReduced() const override { return false; }
};

} // namespace KelvaLR
