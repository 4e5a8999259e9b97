#include "Rendering/DevelopLook.h"

#include "Catalog/DevelopSettingTable.h"

#include <array>

using namespace Qt::StringLiterals;

namespace StandIn {

namespace {

struct ShownSetting
{
    QStringView key;
    double DevelopLook::*value;
};

constexpr std::array shownSettings{
    ShownSetting{u"Temperature", &DevelopLook::temperature},
    ShownSetting{u"Tint", &DevelopLook::tint},
    ShownSetting{u"Exposure2012", &DevelopLook::exposure},
    ShownSetting{u"Contrast2012", &DevelopLook::contrast},
    ShownSetting{u"Highlights2012", &DevelopLook::highlights},
    ShownSetting{u"Shadows2012", &DevelopLook::shadows},
    ShownSetting{u"Whites2012", &DevelopLook::whites},
    ShownSetting{u"Blacks2012", &DevelopLook::blacks},
    ShownSetting{u"Clarity", &DevelopLook::clarity},
    ShownSetting{u"Dehaze", &DevelopLook::dehaze},
    ShownSetting{u"Vibrance", &DevelopLook::vibrance},
    ShownSetting{u"Saturation", &DevelopLook::saturation},
    ShownSetting{u"PostCropVignetteAmount", &DevelopLook::vignette},
};

} // namespace

DevelopLook DevelopLook::from(const CameraRawSettings &settings)
{
    DevelopLook look;
    for (const ShownSetting &shown : shownSettings) {
        look.*shown.value = developSettingWithKey(shown.key)->valueIn(settings);
    }
    look.isMonochrome = settings.value(u"ConvertToGrayscale"_s) == CameraRawValue(u"True"_s);
    return look;
}

} // namespace StandIn
