#include "AppIntents/KelvaLRIntents.h"

#include "AppIntents/AppIntentRouter.h"

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

struct Performer
{
    AppIntentRouter &router;

    std::optional<QString> operator()(const OpenKelvaLRSectionIntent &intent) const
    {
        router.setPendingRoute({.destination = destination(intent.section)});
        return std::nullopt;
    }

    std::optional<QString> operator()(const CreateKelvaLRNoteIntent &intent) const
    {
        router.setPendingRoute({.destination = SidebarSection::chat, .prefilledPrompt = intent.text});
        return u"Opened KelvaLR."_s;
    }

    static SidebarSection destination(KelvaLRSectionIntentValue section)
    {
        switch (section) {
        case KelvaLRSectionIntentValue::chat:
            return SidebarSection::chat;
        }
        return SidebarSection::chat;
    }
};

} // namespace

std::optional<QString> perform(const KelvaLRIntent &intent, AppIntentRouter &router)
{
    return std::visit(Performer{router}, intent);
}

} // namespace KelvaLR
