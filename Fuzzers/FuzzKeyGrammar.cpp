// Any description yields no key or a key with a name; a key that has a code is read back from its name.

#include "FuzzedText.h"

#include "Services/Automation/KeyboardKey.h"

namespace KelvaLR {

namespace {

using Fuzzing::require;

void parseKey(const QString &description)
{
    const auto key = KeyboardKey::parse(description);
    if (!key) {
        return;
    }
    require(!key->displayName.isEmpty());
    if (key->keyCode && !key->displayName.endsWith(u'-')) { // the hyphen is a key, too
        require(KeyboardKey::parse(QString(key->displayName).replace(u'-', u' ')) == key);
    }
}

} // namespace

} // namespace KelvaLR

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    for (const QString &text : KelvaLR::Fuzzing::textsOf(data, size)) {
        KelvaLR::parseKey(text);
    }
    return 0;
}
