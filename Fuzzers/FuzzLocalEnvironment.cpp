// Any text of a `.env.local` file gives a value that stands in it, without quotes at its ends, or none.

#include "FuzzedText.h"

#include "Support/LocalEnvironment.h"

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;
using Fuzzing::require;

void lookUp(const QString &text)
{
    const QString name = u"KEY"_s;
    const auto value = LocalEnvironment::valueInText(text, name);
    require(!value || (!value->isEmpty() && !value->contains(u'\n') && text.contains(*value)));
    require(!value || text.contains("KEY="_L1));
    require(!value ||
            (!QStringView(u"\"'").contains(value->front()) && !QStringView(u"\"'").contains(value->back())));
    // A line of its own in front decides, whatever stands behind it.
    require(LocalEnvironment::valueInText(QString(u"#KEY=no\n KEY='x=y' \r\n"_s + text), name) == u"x=y"_s);
}

} // namespace

} // namespace KelvaLR

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    for (const QString &text : KelvaLR::Fuzzing::textsOf(data, size)) {
        KelvaLR::lookUp(text);
    }
    return 0;
}
