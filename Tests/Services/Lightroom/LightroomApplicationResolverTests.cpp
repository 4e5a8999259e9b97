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

using Registered = QHash<QString, InstalledApplication>;
const Registered onlyClassic{{u"com.adobe.lightroomclassiccc7"_s, classic}};
const Registered both{{u"com.adobe.lightroomclassiccc7"_s, classic}, {u"com.adobe.lightroomCC"_s, cloud}};
const Registered onlyCloud{{u"com.adobe.lightroomCC"_s, cloud}};

TEST(LightroomApplicationResolverTest, opensWhatTheUserMeans)
{
    const struct
    {
        QString request;
        Registered registered;
        QList<InstalledApplication> installed;
        QString answer; ///< empty when nothing is found
    } rows[] = {
        {u"lightroom"_s, both, {}, classic.displayName},
        {u"Adobe Lightroom"_s, both, {}, classic.displayName},
        {u"Lightroom"_s, onlyCloud, {}, cloud.displayName},
        {u"Lightroom Classic"_s, both, {}, classic.displayName},
        {u"Lightroom Classic"_s, onlyCloud, {}, QString()},
        {u"Lightroom Classic"_s, onlyCloud, {standIn, oldClassic}, oldClassic.displayName},
        {u"Lightroom CC"_s, both, {}, cloud.displayName},
        {u"Lightroom CC"_s, onlyClassic, {oldClassic, standIn}, oldClassic.displayName},
        {u"lightroom"_s, {}, {tools, unrelated, standIn}, standIn.displayName},
        {u"lightroom"_s, {}, {tools, unrelated}, QString()},
    };

    for (const auto &row : rows) {
        QStringList journal;
        FakeRunningApplications applications(journal);
        applications.registered = row.registered;
        applications.installed = row.installed;
        const auto answer = LightroomApplicationResolver(applications).resolve(row.request);
        EXPECT_EQ(answer ? answer->displayName : QString(), row.answer) << row.request.toStdString();
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
