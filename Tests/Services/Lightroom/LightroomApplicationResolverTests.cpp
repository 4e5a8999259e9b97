#include "Services/Lightroom/LightroomApplicationResolver.h"
#include "Support/LightroomRig.h"
#include "Support/PrintQt.h"

#include <gtest/gtest.h>

namespace KelvaLR::Testing {
namespace {

using namespace Qt::StringLiterals;

InstalledApplication application(const QString &displayName, const QString &fileName)
{
    return {displayName, fileName, QUrl::fromLocalFile("/apps/"_L1 + fileName)};
}

const InstalledApplication classic = application(u"Adobe Lightroom Classic"_s, u"lrc.desktop"_s);
const InstalledApplication cloud = application(u"Adobe Lightroom"_s, u"lr.desktop"_s);
const InstalledApplication standIn = application(u"Lightroom Stand-in"_s, u"lightroom-standin.desktop"_s);
const InstalledApplication tools = application(u"Photo Tools"_s, u"Lightroom Tools.desktop"_s);
const InstalledApplication oldClassic =
    application(u"Lightroom CLASSIC 2019"_s, u"lightroom-classic-2019.desktop"_s);
const InstalledApplication unrelated = application(u"Lightroom Guide"_s, u"guide.desktop"_s);

TEST(LightroomApplicationResolverTest, opensWhatTheUserMeans)
{
    const QString classicID = u"com.adobe.lightroomclassiccc7"_s;
    const QString cloudID = u"com.adobe.lightroomCC"_s;
    using Registered = QHash<QString, InstalledApplication>;

    struct Case
    {
        QString request;
        Registered registered;
        QList<InstalledApplication> installed;
        QString answer; ///< empty when nothing is found
    };

    const Registered both{{classicID, classic}, {cloudID, cloud}};
    const Registered onlyCloud{{cloudID, cloud}};
    const QList<Case> cases{
        {u"lightroom"_s, both, {}, classic.displayName},
        {u"Adobe Lightroom"_s, both, {}, classic.displayName},
        {u"Lightroom"_s, onlyCloud, {}, cloud.displayName},
        {u"Lightroom Classic"_s, both, {}, classic.displayName},
        {u"Lightroom Classic"_s, onlyCloud, {}, QString()},
        {u"Lightroom Classic"_s, onlyCloud, {standIn, oldClassic}, oldClassic.displayName},
        {u"Lightroom CC"_s, both, {}, cloud.displayName},
        {u"Lightroom CC"_s, {{classicID, classic}}, {oldClassic, standIn}, oldClassic.displayName},
        {u"lightroom"_s, {}, {tools, unrelated, standIn}, standIn.displayName},
        {u"lightroom"_s, {}, {tools, unrelated}, QString()},
    };
    for (const Case &one : cases) {
        QStringList journal;
        FakeRunningApplications applications(journal);
        applications.registered = one.registered;
        applications.installed = one.installed;
        const auto answer = LightroomApplicationResolver(applications).resolve(one.request);
        EXPECT_EQ(answer ? answer->displayName : QString(), one.answer) << one.request.toStdString();
    }
}

TEST(LightroomApplicationResolverTest, listsByFileNameInListingOrder)
{
    QStringList journal;
    FakeRunningApplications applications(journal);
    applications.installed = {tools, unrelated, standIn};
    EXPECT_EQ(LightroomApplicationResolver(applications).installedLightroomApplications(),
              (QList<ResolvedLightroomApplication>{{tools.displayName, tools.url},
                                                   {standIn.displayName, standIn.url}}));
}

} // namespace
} // namespace KelvaLR::Testing
