#include "Stores/AppModelFixture.h"

#include <QJsonDocument>
#include <QSignalSpy>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

using AppModelPromptTest = AppModelTest;

TEST_F(AppModelPromptTest, recordsACommandAndItsAnswerOnceAndABlankPromptNever)
{
    send(u" \n\t "_s);
    EXPECT_EQ(model->promptText(), u" \n\t "_s);
    lightroom.plugin.answer(ScriptedPlugin::successReply(u"Adjusted Exposure2012 on 1 photo to 0.5"_s));
    submit(u"  set exposure to +0.5 "_s);

    ASSERT_EQ(model->messages().size(), 2);
    EXPECT_EQ(model->messages().at(0).content, u"set exposure to +0.5"_s);
    EXPECT_EQ(model->messages().at(0).role, ConversationRole::user);
    EXPECT_EQ(model->messages().at(1).content, u"Lightroom Classic: Adjusted Exposure on 1 photo to 0.5"_s);
    EXPECT_EQ(model->messages().at(1).mode, InputMode::quiet);
    EXPECT_EQ(model->promptText(), QString());
}

TEST_F(AppModelPromptTest, testsTheConnectionBeforeAnythingElse)
{
    submit(u"Test-Lightroom-Connection and set exposure to 1"_s);
    EXPECT_EQ(answers(), QStringList{u"Connected to Lightroom Classic plugin."_s});
    EXPECT_EQ(lightroom.plugin.commands().size(), 1);
}

class ImpatientAppModelTest : public AppModelTest
{
protected:
    ImpatientAppModelTest()
        : AppModelTest(impatientTiming())
    {
    }
};

TEST_F(ImpatientAppModelTest, saysHowToConnectWhenNothingListens)
{
    lightroom.plugin.stopListening();
    submit(u"check lightroom connection"_s);
    EXPECT_EQ(
        answers(),
        QStringList{u"Lightroom Classic plugin is not connected. Open KelvaLR Settings, choose Reveal "
                    "Installed Plugin, then add that KelvaLR.lrplugin folder in Lightroom Classic > File > "
                    "Plug-in Manager."_s});
    EXPECT_TRUE(lightroom.journal.contains(u"bridge status"_s));
}

TEST_F(AppModelPromptTest, anAssistantReplyIsAppendedAsItIsAndItsLastArtifactSelected)
{
    const Artifact first = Artifact::make(ArtifactKind::note, u"First"_s, ArtifactStatus::ready, u"1"_s);
    const Artifact second = Artifact::make(ArtifactKind::note, u"Second"_s, ArtifactStatus::ready, u"2"_s);
    assistant.response.artifacts = {first, second};

    submit(u"what makes a good portrait?"_s);

    EXPECT_EQ(model->messages().constLast(), assistant.response.message);
    EXPECT_EQ(model->artifacts(), (QList<Artifact>{first, second}));
    EXPECT_EQ(model->selectedArtifact(), second);
    submit(u"and another?"_s);
    EXPECT_EQ(assistant.requests.constLast().artifacts.size(), 2);

    model->setSelectedArtifactID(QUuid::createUuid());
    EXPECT_EQ(model->selectedArtifact(), first);
    model->startNewSession();
    EXPECT_EQ(model->selectedArtifact(), std::nullopt);
}

TEST_F(AppModelPromptTest, carriesOutTheActionOfAReplyWithAllItsArguments)
{
    const QString notInFront = u"Bring Adobe Lightroom or Lightroom Classic to the front before typing."_s;

    const struct
    {
        AssistantAction action;
        QByteArray sent;
        QString answer = u"Lightroom Classic: Done"_s;
    } rows[] = {
        {{.type = u" LR_Adjust_Slider "_s,
          .slider = u"Tint"_s,
          .value = 3,
          .relative = false,
          .text = u"4"_s},
         R"({"action":"adjust_slider","relative":false,"slider":"Tint","value":3})"},
        {{.type = u"lr_set_rating"_s, .text = u"4"_s}, R"({"action":"rating","value":4})"},
        {{.type = u"lr_apply_preset"_s, .text = u"Cold"_s, .presetName = u"Warm"_s},
         R"({"action":"apply_preset","preset_name":"Warm"})"},
        {{.type = u"lr_import_folder"_s, .folderPath = u"/tmp"_s},
         R"({"action":"import_folder","folder_path":"/tmp"})"},
        {{.type = u"click"_s}, {}, u"No Lightroom element name provided to click."_s},
        {{.type = u"type"_s}, {}, u"No text provided to type."_s},
        {{.type = u"type"_s, .text = u"x"_s}, {}, notInFront},
        {{.type = u"Type"_s, .text = u""_s}, {}, notInFront},
    };

    for (const auto &row : rows) {
        assistant.response.action = row.action;
        const auto before = lightroom.plugin.commands().size();
        submit(u"please"_s);
        EXPECT_EQ(answers().constLast(), row.answer);
        if (row.sent.isEmpty()) {
            EXPECT_EQ(lightroom.plugin.commands().size(), before);
        } else {
            EXPECT_EQ(QJsonDocument(lastCommand()).toJson(QJsonDocument::Compact), row.sent);
        }
    }
}

TEST_F(AppModelPromptTest, aModelThatDiesWhileARequestRunsTakesNothingWithIt)
{
    for (const QString &text : {u"hello"_s, u"set exposure to 1"_s, u"test lightroom connection"_s}) {
        send(text);
        makeModel(assistant, realtime, wakePhrase);
    }
    submit(u"set contrast to 2"_s); // by then every earlier task has come back to a model that is gone
    EXPECT_EQ(model->messages().size(), 2);
}

TEST_F(AppModelPromptTest, anIntentRouteFillsTheComposerAndAsksForFocus)
{
    const QSignalSpy focus(model.get(), &AppModel::shouldFocusPromptChanged);
    model->applyIntentRoute({.prefilledPrompt = u""_s});
    EXPECT_EQ(focus.size(), 0);
    model->applyIntentRoute({.prefilledPrompt = u"note this"_s});
    model->applyIntentRoute({.prefilledPrompt = u"note this"_s});
    EXPECT_EQ(focus.size(), 2);
    EXPECT_EQ(model->promptText(), u"note this"_s);
    EXPECT_TRUE(model->messages().isEmpty());
}
