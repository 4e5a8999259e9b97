// The hands on programs that nobody here wrote, of two toolkits.

#include "Platform/Linux/AtSpiAccessibility.h"
#include "Platform/Linux/DesktopApplications.h"
#include "Platform/Linux/WindowPing.h"
#include "Platform/Linux/X11Connection.h"
#include "Platform/Linux/XTestInputEvents.h"
#include "Services/Automation/UIAutomationService.h"
#include "Services/Automation/UIElementSearch.h"
#include "Services/Lightroom/AccessibilitySliders.h"
#include "Support/PrintQt.h"
#include "Support/WaitForTask.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;
using testing::HasSubstr;
using testing::Not;

namespace {

/// Characters that the layout has, lacks, that lie beyond 16 bits, and an accent of its own.
const QString unusualText = u"Café 中 😀 e\u0301"_s;

/// The hands as the application wires them, and one program at a time that they work on.
class OtherPrograms : public testing::Test
{
protected:
    void TearDown() override
    {
        m_program.kill(); // unless it has ended by itself
        m_program.waitForFinished();
        // What GTK says when an element is asked for an interface that it does not have.
        EXPECT_THAT(m_program.readAllStandardError().toStdString(), Not(HasSubstr("ATK_IS_")));
    }

    /// Starts a program and waits until it is in front and shows an element of this role.
    void start(const QString &program, const QStringList &arguments, QLatin1StringView awaitedRole)
    {
        m_program.start(program, arguments);
        ASSERT_TRUE(waitUntil([&] {
            const auto frontmost = m_applications.frontmostApplication();
            return frontmost && frontmost->processId == m_program.processId() && shown(awaitedRole);
        }));
    }

    /// The first element of this role that the program shows, with its value.
    std::optional<AccessibilityElement> shown(QLatin1StringView role)
    {
        AccessibilityTree tree =
            waitForTask(m_accessibility.tree(m_program.processId(), Accessibility::unlimited));
        const ElementPlaces places =
            placesOf(tree, [&](const AccessibilityElement &element) { return element.role == role; });
        if (places.isEmpty()) {
            return std::nullopt;
        }
        tree =
            waitForTask(m_accessibility.withAttributes(tree, {places.constFirst()}, ElementAttribute::value));
        return tree.at(places.constFirst());
    }

    QString textOf(QLatin1StringView role)
    {
        const auto element = shown(role);
        const QString *text = element ? std::get_if<QString>(&element->value) : nullptr;
        return text ? *text : u"(no text)"_s;
    }

    void expectText(QLatin1StringView role, const QString &text)
    {
        EXPECT_TRUE(waitUntil([&] { return textOf(role) == text; })) << textOf(role).toStdString();
    }

    static void expectSuccess(QCoro::Task<UIAutomationResult> operation)
    {
        const UIAutomationResult result = waitForTask(std::move(operation));
        EXPECT_TRUE(result.isSuccess()) << result.message.toStdString();
    }

    void pressKey(const QString &description)
    {
        const auto key = KeyboardKey::parse(description);
        ASSERT_TRUE(key);
        expectSuccess(m_hands.pressKey(*key));
    }

    /// The program's exit status, once it has ended by itself; none when it does not.
    std::optional<int> exitStatus()
    {
        const bool isOver = waitUntil([&] { return m_program.state() == QProcess::NotRunning; });
        return isOver && m_program.exitStatus() == QProcess::NormalExit ? std::optional(m_program.exitCode())
                                                                        : std::nullopt;
    }

    QString output() { return QString::fromUtf8(m_program.readAllStandardOutput()); }

    QProcess m_program;
    X11Connection m_x11;
    DesktopApplications m_applications{m_x11};
    AccessibilityBus m_bus;
    AtSpiAccessibility m_accessibility{m_bus, [](TrustPrompt) { return true; }};
    WindowPing m_ping;
    XTestInputEvents m_input{m_x11, [this] { return m_ping.answered(); }};
    UIAutomationService m_hands{m_accessibility, m_input, m_applications};
};

TEST_F(OtherPrograms, answerAQuestionByTheButtonThatIsClicked)
{
    for (const auto &[button, status] : {std::pair{u"Yes"_s, 0}, {u"No"_s, 1}}) {
        start(u"zenity"_s, {u"--question"_s, u"--text=Export?"_s}, "AXButton"_L1);
        const UIElementDescription listed{u"AXButton"_s, {}, button, std::nullopt, std::nullopt};
        EXPECT_TRUE(waitForTask(m_hands.getVisibleElements()).contains(listed)) << button.toStdString();
        expectSuccess(m_hands.clickVisibleElement(u"Export"_s)); // a text, which has no action
        expectSuccess(m_hands.clickVisibleElement(button));
        EXPECT_EQ(exitStatus(), status) << button.toStdString();
    }
}

TEST_F(OtherPrograms, takeTextInTheFieldOfALabel)
{
    start(u"zenity"_s, {u"--entry"_s, u"--text=Your name"_s}, "AXTextField"_L1);
    expectSuccess(m_hands.typeTextIntoField(unusualText, u"your name"_s));
    expectText("AXTextField"_L1, unusualText);
    expectSuccess(m_hands.clickVisibleElement(u"OK"_s));
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_EQ(output(), unusualText + u'\n');
}

TEST_F(OtherPrograms, moveASliderThatATextNames)
{
    start(u"zenity"_s, {u"--scale"_s, u"--text=Exposure"_s, u"--value=20"_s}, "AXSlider"_L1);
    const auto slider = waitForTask(sliderNamed(&m_accessibility, m_program.processId(), u"exposure"_s));
    ASSERT_TRUE(slider);
    EXPECT_EQ(slider->value, AccessibilityElement::Value(20.0));
    EXPECT_TRUE(waitForTask(m_accessibility.setValue(slider->id, 65)));
    EXPECT_EQ(waitForTask(sliderValue(&m_accessibility, *slider)), AccessibilityElement::Value(65.0));
    expectSuccess(m_hands.clickVisibleElement(u"OK"_s));
    EXPECT_EQ(exitStatus(), 0);
    EXPECT_EQ(output(), u"65\n"_s);
}

TEST_F(OtherPrograms, editAndSaveAFileInGtk)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"caption.txt"_s));
    QString text = unusualText + u"\nsecond line: "_s;
    for (char16_t ideograph = u'一'; text.size() < 300;
         ++ideograph) { // more than a keyboard map has room for
        text += ideograph;
    }
    start(u"l3afpad"_s, {file.fileName()}, "AXTextArea"_L1);
    expectSuccess(m_hands.typeText(text));
    expectText("AXTextArea"_L1, text);
    pressKey(u"ctrl s"_s);
    EXPECT_TRUE(waitUntil([&] { return file.exists() && file.size() == text.toUtf8().size(); }));
    EXPECT_TRUE(file.open(QFile::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(file.readAll()), text);

    expectSuccess(m_hands.clickVisibleElement(u"Select All"_s)); // of a menu that is closed
    pressKey(u"delete"_s);
    expectText("AXTextArea"_L1, QString());
}

TEST_F(OtherPrograms, editAndSearchInQt)
{
    start(u"featherpad"_s, {}, "AXTextArea"_L1);
    const QString text = unusualText + u"\nsecond line"_s;
    expectSuccess(m_hands.typeText(text));
    expectText("AXTextArea"_L1, text);
    pressKey(u"ctrl a"_s);
    pressKey(u"delete"_s);
    expectText("AXTextArea"_L1, QString());

    expectSuccess(m_hands.clickVisibleElement(u"Find"_s));
    expectSuccess(m_hands.typeText(unusualText));
    expectText("AXTextField"_L1, unusualText);
    expectSuccess(m_hands.typeTextIntoField(u"!"_s, u"Search"_s));
    expectText("AXTextField"_L1, unusualText + u'!');
    expectText("AXTextArea"_L1, QString());
}

} // namespace
