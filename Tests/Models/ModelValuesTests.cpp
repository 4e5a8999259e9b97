#include "Models/Artifact.h"
#include "Models/ConversationMessage.h"
#include "Models/ImportedPhotoAsset.h"
#include "Models/RealtimeVoiceState.h"
#include "Support/PrintQt.h"

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

TEST(ModelValues, equalityAndHashTakeEveryField)
{
    const auto message = ConversationMessage::make(ConversationRole::user, InputMode::quiet, u"rate it"_s);
    ConversationMessage otherContent = message;
    otherContent.content = u"flag it"_s;
    ConversationMessage withoutMode = message;
    withoutMode.mode.reset();
    ConversationMessage later = message;
    later.createdAt = later.createdAt.addMSecs(1);
    for (const ConversationMessage &other : {otherContent, withoutMode, later}) {
        EXPECT_NE(message, other);
        EXPECT_NE(qHash(message), qHash(other));
    }
    const ConversationMessage copy = message;
    EXPECT_EQ(message, copy);
    EXPECT_EQ(qHash(message), qHash(copy));

    const auto artifact = Artifact::make(ArtifactKind::note, u"Title"_s, ArtifactStatus::running, u"Body"_s);
    Artifact reviewed = artifact;
    reviewed.status = ArtifactStatus::needsReview;
    EXPECT_NE(artifact, reviewed);
}

TEST(ModelValues, rawStringsNameEachCaseBothWays)
{
    EXPECT_EQ(rawValue(ArtifactStatus::needsReview), u"needs review"_s);
    EXPECT_EQ(fromRawValue<ArtifactStatus>(u"needs review"), ArtifactStatus::needsReview);
    EXPECT_EQ(fromRawValue<RealtimeVoiceState>(u"Idle"), std::nullopt);
    for (const auto &row : rawValueTable<RealtimeVoiceState>) {
        EXPECT_EQ(fromRawValue<RealtimeVoiceState>(rawValue(row.value)), row.value);
    }
}

TEST(ModelValues, photosAreRecognisedByTheirExtensionInAnyCase)
{
    const struct
    {
        QString name;
        bool isPhoto;
    } rows[] = {
        {u"DSC.CR3"_s, true}, {u"a.b.jpeg"_s, true}, {u"x.Tiff"_s, true},         {u"notes.txt"_s, false},
        {u"photo"_s, false},  {u".jpg"_s, false},    {u"photo.jpg.xmp"_s, false},
    };

    for (const auto &row : rows) {
        EXPECT_EQ(ImportedPhotoAsset::isSupportedFileName(row.name), row.isPhoto) << row.name.toStdString();
    }
    EXPECT_EQ(ImportedPhotoAsset::make(u"/photos/Trip 1.day.NEF"_s).displayName, u"Trip 1.day"_s);
}
