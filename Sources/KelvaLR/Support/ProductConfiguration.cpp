#include "Support/ProductConfiguration.h"

#include "Support/TextTrimming.h"

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView environmentKeyEntry("KelvaOpenAIEnvironmentKey");
constexpr QLatin1StringView defaultEnvironmentKey("KELVALR_OPENAI_API_KEY");

} // namespace

ProductConfiguration ProductConfiguration::fromInfoDictionary(const QVariantMap &information)
{
    const QVariant entry = information.value(environmentKeyEntry);
    const QString name =
        entry.typeId() == QMetaType::QString ? trimmedWhitespace(entry.toString()) : QString();
    return {name.isEmpty() ? QString(defaultEnvironmentKey) : name};
}

const ProductConfiguration &ProductConfiguration::current()
{
    static const ProductConfiguration configuration =
        fromInfoDictionary({{environmentKeyEntry, QStringLiteral(KELVALR_OPENAI_ENVIRONMENT_KEY)}});
    return configuration;
}

} // namespace KelvaLR
