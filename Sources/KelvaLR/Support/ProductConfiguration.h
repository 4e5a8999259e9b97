#pragma once

#include <QString>
#include <QVariantMap>

namespace KelvaLR {

/// What the product's builder has decided. `App/` hands it down; it never changes while the program runs.
struct ProductConfiguration
{
    /// The environment variable that holds the OpenAI API key.
    QString openAIEnvironmentKeyName;

    /// Reads "KelvaOpenAIEnvironmentKey" of an Info dictionary, trimmed. A value that is missing, blank or no
    /// string gives the default.
    [[nodiscard]] static ProductConfiguration fromInfoDictionary(const QVariantMap &information);

    /// The configuration of this build, made on first use; any thread. Where there are no application
    /// bundles, the CMake variable KELVALR_OPENAI_ENVIRONMENT_KEY stands for the dictionary's entry.
    [[nodiscard]] static const ProductConfiguration &current();

    bool operator==(const ProductConfiguration &) const = default;
};

} // namespace KelvaLR
