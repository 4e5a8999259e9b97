#include "AppIntents/AppIntentRouter.h"
#include "AppIntents/KelvaLREntities.h"
#include "AppIntents/KelvaLRIntents.h"
#include "Support/PrintQt.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

TEST(KelvaLRIntents, leaveARouteOfTheirOwnEachTime)
{
    const struct
    {
        KelvaLRIntent intent;
        std::optional<QString> prefilledPrompt;
        std::optional<QString> dialog;
    } cases[] = {
        {OpenKelvaLRSectionIntent{}, std::nullopt, std::nullopt},
        {CreateKelvaLRNoteIntent{u"Buy film"_s}, u"Buy film"_s, u"Opened KelvaLR."_s},
        {CreateKelvaLRNoteIntent{u"Buy film"_s}, u"Buy film"_s, u"Opened KelvaLR."_s},
        {CreateKelvaLRNoteIntent{u" \n"_s}, u" \n"_s, u"Opened KelvaLR."_s},
        {CreateKelvaLRNoteIntent{}, QString(), u"Opened KelvaLR."_s},
    };

    AppIntentRouter router;
    const QSignalSpy published(&router, &AppIntentRouter::pendingRouteChanged);
    QUuid last;
    for (const auto &one : cases) {
        EXPECT_EQ(perform(one.intent, router), one.dialog);
        ASSERT_TRUE(router.pendingRoute());
        EXPECT_EQ(router.pendingRoute()->prefilledPrompt, one.prefilledPrompt);
        EXPECT_EQ(router.pendingRoute()->destination, SidebarSection::chat);
        EXPECT_NE(std::exchange(last, router.pendingRoute()->id), router.pendingRoute()->id);
    }
    EXPECT_EQ(published.count(), std::ssize(cases));
}

TEST(KelvaLREntities, areFoundByTheirIdentifiers)
{
    const QList<KelvaLRSessionEntity> session{{u"chat"_s, u"Lightroom"_s}};
    EXPECT_EQ(KelvaLRSessionQuery::suggestedEntities(), session);
    EXPECT_EQ(KelvaLRSessionQuery::entities({u"chat"_s, u"other"_s}), session);
    EXPECT_TRUE(KelvaLRSessionQuery::entities({u"other"_s}).isEmpty());
    const QList<KelvaLRArtifactEntity> artifact{
        {u"lightroom-status"_s, u"Lightroom Status"_s, u"Markdown"_s}};
    EXPECT_EQ(KelvaLRArtifactQuery::entities({u"lightroom-status"_s, u"lightroom-status"_s}), artifact);
    EXPECT_TRUE(KelvaLRArtifactQuery::entities({u"Lightroom Status"_s}).isEmpty());
}
