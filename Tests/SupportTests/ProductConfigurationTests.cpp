#include "Support/ProductConfiguration.h"

#include "Support/PrintQt.h"

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

TEST(ProductConfiguration, readsTheKeyNameTrimmedOrTakesTheDefault)
{
    const QString ordinary = u"KELVALR_OPENAI_API_KEY"_s;
    const std::pair<QVariantMap, QString> cases[] = {
        {{}, ordinary},
        {{{u"KelvaOpenAIEnvironmentKey"_s, u" MY_KEY\n"_s}}, u"MY_KEY"_s},
        {{{u"KelvaOpenAIEnvironmentKey"_s, u" \t\n"_s}}, ordinary},
        {{{u"KelvaOpenAIEnvironmentKey"_s, 5}}, ordinary},
    };
    for (const auto &[information, name] : cases) {
        EXPECT_EQ(ProductConfiguration::fromInfoDictionary(information).openAIEnvironmentKeyName, name);
    }
    EXPECT_EQ(ProductConfiguration::current().openAIEnvironmentKeyName, ordinary);
}
