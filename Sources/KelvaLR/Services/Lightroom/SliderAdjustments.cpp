#include "Services/Lightroom/SliderAdjustments.h"

#include "Support/DecimalNumber.h"

#include <QStringList>

namespace KelvaLR {

using namespace Qt::StringLiterals;

QList<std::optional<ParsedLightroomSliderCommand>> parsedSliderAdjustments(const QString &adjustments)
{
    QList<std::optional<ParsedLightroomSliderCommand>> parsed;
    for (const QString &item : adjustments.split(u';')) {
        const QStringList parts = item.split(u':');
        if (parts.size() != 3) {
            continue;
        }
        parsed.emplaceBack();
        if (const std::optional<double> value = decimalNumber(parts.at(1))) {
            parsed.back() = {.sliderName = parts.at(0), .value = *value, .relative = parts.at(2) == "1"_L1};
        }
    }
    return parsed;
}

} // namespace KelvaLR
