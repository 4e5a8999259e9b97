#include "AppIntents/KelvaLRSectionIntentValue.h"

#include <QStringList>

namespace KelvaLR {

using namespace Qt::StringLiterals;

std::expected<KelvaLRSectionIntentValue, QString> sectionNamed(const QString &name)
{
    if (const auto section = fromRawValue<KelvaLRSectionIntentValue>(name)) {
        return *section;
    }
    QStringList names;
    for (const auto &row : rawValueTable<KelvaLRSectionIntentValue>) {
        names.append(row.raw);
    }
    return std::unexpected(u"There is no section '%1'; there is: %2."_s.arg(name, names.join(", "_L1)));
}

} // namespace KelvaLR
