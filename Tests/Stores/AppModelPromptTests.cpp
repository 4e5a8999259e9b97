#include "Stores/AppModelFixture.h"

#include <QSignalSpy>

#include <limits>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

namespace {

using AppModelPromptTest = AppModelTest;

} // namespace

TEST_F(AppModelPromptTest, ignoresBlankPromptsAndPromptsWhileItResponds)
{
    model->setPromptText(u" \n\t "_s);
    model->submitPrompt();
    EXPECT_TRUE(model->messages().isEmpty());
    EXPECT_EQ(model->promptText(), u" \n\t "_s);

    model->setPromptText(u"hello"_s);
    model->submitPrompt();
    EXPECT_TRUE(model->isResponding());
    EXPECT_EQ(model->promptText(), QString());
    model->setPromptText(u"once more"_s);
    model->submitPrompt();
    EXPECT_EQ(model->messages().size(), 1);
    EXPECT_EQ(model->promptText(), u"once more"_s);
    EXPECT_TRUE(waitUntil([&] { return !model->isResponding(); }));
    EXPECT_EQ(assistant.requests.size(), 1);
}

TEST_F(AppModelPromptTest, recordsACommandAndItsAnswerOnce)
{
    lightroom.plugin.answer(ScriptedPlugin::successReply(u"Adjusted Exposure2012 on 1 photo to 0.5"_s));

    submit(u"  set exposure to +0.5 "_s);

    ASSERT_EQ(model->messages().size(), 2);
    EXPECT_EQ(model->messages().at(0).content, u"set exposure to +0.5"_s);
    EXPECT_EQ(model->messages().at(0).role, ConversationRole::user);
    EXPECT_EQ(model->messages().at(1).content, u"Lightroom Classic: Adjusted Exposure on 1 photo to 0.5"_s);
    EXPECT_EQ(model->messages().at(1).mode, InputMode::quiet);
    EXPECT_TRUE(speech.texts.isEmpty());
}

TEST_F(AppModelPromptTest, testsTheConnectionBeforeAnythingElse)
{
    submit(u"Test-Lightroom-Connection and set exposure to 1"_s);
    EXPECT_EQ(answers(), QStringList{u"Connected to Lightroom Classic plugin."_s});
    EXPECT_EQ(lightroom.plugin.commands().size(), 1);
}

TEST_F(AppModelPromptTest, saysHowToConnectWhenNothingListens)
{
    lightroom.plugin.stopListening();
    LightroomService unreachable(lightroom.applications, lightroom.accessibility, lightroom.menus,
                                 lightroom.automation, LightroomPluginInstaller(lightroom.modules.path()),
                                 lightroom.log, lightroom.plugin.endpoint(), impatientTiming());
    model = std::make_unique<AppModel>(AppModelServices{assistant, computerUse, realtime, wakePhrase, speech,
                                                        unreachable, connection, actions,
                                                        lightroom.applications, preferences});
    submit(u"check lightroom connection"_s);
    EXPECT_EQ(
        answers(),
        QStringList{u"Lightroom Classic plugin is not connected. Open KelvaLR Settings, choose Reveal "
                    "Installed Plugin, then add that KelvaLR.lrplugin folder in Lightroom Classic > File > "
                    "Plug-in Manager."_s});
    EXPECT_TRUE(lightroom.journal.contains(u"bridge status"_s));
    model.reset();
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

TEST_F(AppModelPromptTest, carriesOutTheActionOfAReply)
{
    const auto action = [](const QString &type) { return AssistantAction{.type = type}; };
    const auto with = [&](const QString &type, auto change) {
        AssistantAction changed = action(type);
        change(changed);
        return changed;
    };

    const struct
    {
        AssistantAction action;
        QJsonObject command; ///< empty: nothing is sent
        QString answer = u"Lightroom Classic: Done"_s;
    } rows[] = {
        {action(u"open_app"_s), {}, u"No application name provided."_s},
        {action(u"click"_s), {}, u"No Lightroom element name provided to click."_s},
        {action(u"type"_s), {}, u"No text provided to type."_s},
        {with(u"type"_s, [](auto &a) { a.text = u"x"_s; }),
         {},
         u"Bring Adobe Lightroom or Lightroom Classic to the front before typing."_s},
        {with(u"Type"_s, [](auto &a) { a.text = QString(); }),
         {},
         u"Bring Adobe Lightroom or Lightroom Classic to the front before typing."_s},
        {action(u"inspect_ui"_s),
         {},
         u"Bring Adobe Lightroom or Lightroom Classic to the front before inspecting UI."_s},
        {action(u"press_key"_s), {}, u"Invalid or missing key: "_s},
        {action(u"lr_delete"_s), {}, u"KelvaLR only supports Lightroom and Lightroom Classic actions."_s},
        {with(u" LR_Adjust_Slider "_s,
              [](auto &a) {
                  a.slider = u"Exposure"_s;
                  a.text = u"0.5"_s;
              }),
         {{u"action"_s, u"adjust_slider"_s},
          {u"slider"_s, u"Exposure"_s},
          {u"value"_s, 0.5},
          {u"relative"_s, true}}},
        {with(u"lr_adjust_slider"_s,
              [](auto &a) {
                  a.slider = u"Tint"_s;
                  a.value = 3;
                  a.text = u"4"_s;
                  a.relative = false;
              }),
         {{u"action"_s, u"adjust_slider"_s},
          {u"slider"_s, u"Tint"_s},
          {u"value"_s, 3},
          {u"relative"_s, false}}},
        {with(u"lr_adjust_sliders"_s, [](auto &a) { a.text = u"Exposure:1:0"_s; }),
         {{u"action"_s, u"adjust_sliders"_s}, {u"adjustments"_s, u"Exposure:1:0"_s}}},
        {with(u"lr_apply_preset"_s, [](auto &a) { a.text = u"Warm"_s; }),
         {{u"action"_s, u"apply_preset"_s}, {u"preset_name"_s, u"Warm"_s}}},
        {action(u"lr_import_folder"_s), {}, u"No folder path was provided."_s},
        {action(u"lr_cull_photo"_s), {{u"action"_s, u"cull"_s}, {u"type"_s, u"pick"_s}}},
        {with(u"LR_SET_RATING"_s, [](auto &a) { a.value = 3.9; }),
         {{u"action"_s, u"rating"_s}, {u"value"_s, 3}}},
        {with(u"lr_set_rating"_s, [](auto &a) { a.text = u"4"_s; }),
         {{u"action"_s, u"rating"_s}, {u"value"_s, 4}}},
        {with(u"lr_set_rating"_s, [](auto &a) { a.text = u" 4"_s; }),
         {{u"action"_s, u"rating"_s}, {u"value"_s, 0}}},
        {with(u"lr_set_rating"_s, [](auto &a) { a.value = std::numeric_limits<double>::infinity(); }),
         {},
         u"That rating is not a number from 0 to 5."_s},
        {action(u"lr_navigate"_s), {{u"action"_s, u"next"_s}}},
        {action(u"lr_get_status"_s), {{u"action"_s, u"get_status"_s}}},
    };

    lightroom.plugin.answer(ScriptedPlugin::successReply(u"Done"_s));
    for (const auto &row : rows) {
        SCOPED_TRACE(row.action.type.toStdString());
        assistant.response.action = row.action;
        const auto before = lightroom.plugin.commands().size();
        submit(u"please"_s);
        EXPECT_EQ(answers().constLast(), row.answer);
        if (row.command.isEmpty()) {
            EXPECT_EQ(lightroom.plugin.commands().size(), before);
        } else {
            EXPECT_EQ(lastCommand(), row.command);
        }
    }
}

TEST_F(AppModelPromptTest, aNewSessionKeepsThePhotosAndWhatIsUnderWay)
{
    assistant.delay = std::chrono::milliseconds(50);
    model->setPromptText(u"hello"_s);
    model->submitPrompt();
    model->startNewSession();

    EXPECT_TRUE(model->messages().isEmpty());
    EXPECT_TRUE(model->isResponding());
    EXPECT_TRUE(waitUntil([&] { return !model->isResponding(); }));
    EXPECT_EQ(answers(), QStringList{u"Hello."_s});
    EXPECT_TRUE(realtime.calls.contains(u"stop"_s));
}

TEST_F(AppModelPromptTest, aModelThatDiesWhileARequestRunsTakesNothingWithIt)
{
    for (const QString &text : {u"hello"_s, u"set exposure to 1"_s, u"test lightroom connection"_s}) {
        model->setPromptText(text);
        model->submitPrompt();
        model = std::make_unique<AppModel>(AppModelServices{assistant, computerUse, realtime, wakePhrase,
                                                            speech, *lightroom.service, connection, actions,
                                                            lightroom.applications, preferences});
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
