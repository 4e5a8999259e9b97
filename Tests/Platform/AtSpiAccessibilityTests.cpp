#include "Platform/Linux/AtSpiAccessibility.h"

#include "Platform/Linux/AccessibilityTreeWalk.h"
#include "Platform/Linux/AccessibleLightroomMenus.h"
#include "Services/Automation/ElementReading.h"
#include "Support/FabricatedAccessibleTree.h"
#include "Support/LightroomRig.h"
#include "Support/PrintQt.h"
#include "Support/WaitForTask.h"

#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

#include <csignal>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

bool isAlwaysTrusted(TrustPrompt)
{
    return true;
}

/// A Qt program with a window of ordinary controls, and the adapter that reads it.
class AtSpi : public testing::Test
{
protected:
    AtSpi()
    {
        gallery.start(QStringLiteral(KELVALR_WIDGET_GALLERY), {u"40"_s});
        EXPECT_TRUE(waitUntil([&] {
            return find(u"Control 39"_s, ElementPurpose::click).has_value() ||
                   find(u"Control 38"_s, ElementPurpose::click).has_value();
        }));
    }

    void TearDown() override
    {
        gallery.kill();
        gallery.waitForFinished();
    }

    std::optional<AccessibilityElement> find(const QString &name, ElementPurpose purpose)
    {
        const AccessibilityTree tree =
            waitForTask(treeToSearch(&accessibility, gallery.processId(), name, purpose));
        const AccessibilityElement *element = findElement(tree, name, purpose);
        return element ? std::optional(*element) : std::nullopt;
    }

    /// What the program says next about what was done to it.
    QString nextDeed()
    {
        EXPECT_TRUE(waitUntil([&] { return gallery.canReadLine(); }));
        const QString line = QString::fromUtf8(gallery.readLine()).trimmed();
        return line == "ready"_L1 ? nextDeed() : line;
    }

    QProcess gallery;
    AccessibilityBus bus{&existingSessionBus, {.answer = 300ms}};
    AtSpiAccessibility accessibility{bus, &isAlwaysTrusted};
};

TEST_F(AtSpi, namesEveryKindOfControlAndLeavesOutWhatIsHidden)
{
    for (const auto &[name, role] : {std::pair{u"Export"_s, u"AXButton"_s},
                                     {u"Lens Profile"_s, u"AXCheckBox"_s},
                                     {u"Caption"_s, u"AXTextArea"_s},
                                     {u"Sunset.jpg"_s, u"AXStaticText"_s},
                                     {u"JPEG"_s, u"AXPopUpButton"_s},
                                     {u"Quality"_s, u"AXTextField"_s},
                                     {u"KelvaLR Status"_s, u"AXMenuItem"_s}}) {
        const auto element = find(name, ElementPurpose::click);
        ASSERT_TRUE(element) << name.toStdString();
        EXPECT_EQ(element->role, role) << name.toStdString();
    }
    const auto tree = waitForTask(accessibility.tree(gallery.processId(), Accessibility::unlimited));
    EXPECT_EQ(std::ranges::count(tree, u"AXComboBox"_s, &AccessibilityElement::role),
              1); // it can be typed into
    EXPECT_FALSE(find(u"Hidden"_s, ElementPurpose::click));
    EXPECT_FALSE(find(u"Export"_s, ElementPurpose::field));

    const auto listed = visibleElements(waitForTask(treeToList(&accessibility, gallery.processId())));
    const UIElementDescription button{u"AXButton"_s, {}, u"Export"_s, u"Writes the photo"_s, std::nullopt};
    const UIElementDescription editor{
        u"AXTextArea"_s, {}, u"Caption"_s, std::nullopt, u"Caption of the photo"_s};
    EXPECT_TRUE(listed.contains(button));
    EXPECT_TRUE(listed.contains(editor));
}

TEST_F(AtSpi, pressesWhatHasAnAction)
{
    for (const auto &[name, deed] :
         {std::pair{u"Export"_s, u"clicked Export"_s}, {u"Lens Profile"_s, u"toggled 1"_s}}) {
        EXPECT_TRUE(waitForTask(accessibility.press(find(name, ElementPurpose::click)->id)));
        EXPECT_EQ(nextDeed(), deed);
    }
    const auto label = find(u"Sunset.jpg"_s, ElementPurpose::click);
    EXPECT_FALSE(waitForTask(accessibility.press(label->id)));
    EXPECT_FALSE(waitForTask(accessibility.setValue(label->id, 1)));
    EXPECT_TRUE(label->center);
}

TEST_F(AtSpi, choosesLightroomsMenuItemsWhileTheirMenusAreClosed)
{
    bool isTrusted = true;
    AtSpiAccessibility consented(bus, [&](TrustPrompt) { return isTrusted; });
    QStringList journal;
    FakeRunningApplications applications(journal);
    AccessibleLightroomMenus menus(applications, consented, 1ms);
    const auto answer = [&] { return waitForTask(menus.clickBridgeStatus()).value_or(u"refused"_s); };

    EXPECT_EQ(answer(), u"Lightroom Classic is not running"_s);
    applications.running = {{.name = u"Lightroom Gallery"_s, .processId = gallery.processId()}};
    EXPECT_EQ(answer(), u"started"_s);
    EXPECT_EQ(journal, QStringList{u"activate Lightroom Gallery"_s});
    EXPECT_EQ(nextDeed(), u"menu"_s);
    waitForTask(menus.openPluginManager());
    EXPECT_EQ(nextDeed(), u"manager"_s);

    applications.running[0].processId = QCoreApplication::applicationPid(); // without such a menu
    EXPECT_EQ(answer(), u"KelvaLR Status was not found in Lightroom Classic > Plug-in Extras"_s);
    isTrusted = false;
    EXPECT_EQ(answer(), u"refused"_s);
}

TEST_F(AtSpi, aProgramThatHangsOrVanishesEndsEveryOperation)
{
    const auto button = find(u"Export"_s, ElementPurpose::click);
    const qint64 process = gallery.processId();
    ::kill(static_cast<pid_t>(process), SIGSTOP);
    const auto stuck = waitForTask(accessibility.tree(process, Accessibility::unlimited));
    EXPECT_LE(stuck.size(), 1);
    EXPECT_FALSE(waitForTask(accessibility.press(button->id)));
    EXPECT_FALSE(waitForTask(accessibility.setValue(button->id, 1)));
    waitForTask(accessibility.focus(button->id));
    ::kill(static_cast<pid_t>(process), SIGCONT);
    EXPECT_TRUE(waitUntil([&] { return find(u"Export"_s, ElementPurpose::click).has_value(); }));

    auto walk = accessibility.tree(process, Accessibility::unlimited);
    gallery.kill();
    waitForTask(std::move(walk));
    ASSERT_TRUE(waitUntil([&] { return gallery.state() == QProcess::NotRunning; }));
    EXPECT_TRUE(waitForTask(accessibility.tree(process, Accessibility::unlimited)).isEmpty());
    EXPECT_FALSE(waitForTask(accessibility.press(button->id)));
}

TEST(AtSpiWithoutABus, showsNothingAndDoesNothing)
{
    AccessibilityBus bus([] { return QDBusConnection(QString()); });
    AtSpiAccessibility accessibility(bus, &isAlwaysTrusted);
    EXPECT_TRUE(waitForTask(accessibility.tree(1, Accessibility::unlimited)).isEmpty());
    EXPECT_FALSE(waitForTask(accessibility.press(u":1.1/a"_s)));
    EXPECT_FALSE(waitForTask(accessibility.setValue(u":1.1/a"_s, 1)));
}

TEST(UnusualTrees, areWalkedToTheirEndOrToTheLimits)
{
    AccessibilityBus bus;
    AccessibilityBus otherBus; // of the program that is walked
    const auto idsOf = [&](const FabricatedAccessibleTree::Children &children, qsizetype limit,
                           std::chrono::seconds time) {
        const FabricatedAccessibleTree fabricated(waitForTask(otherBus.connection()), children);
        QList<int> ids;
        for (const AccessibilityElement &element :
             waitForTask(walkTree(&bus, fabricated.root(), limit, QDeadlineTimer(time)), time + 20s)) {
            ids.append(element.id.section(u'/', -1).toInt());
        }
        return ids;
    };

    const auto cycle = [](int element) { return QList<int>{(element + 1) % 3, element, 0}; };
    EXPECT_EQ(idsOf(cycle, Accessibility::unlimited, 10s), (QList<int>{0, 1, 2}));

    const auto deep = [](int element) { return element < 5000 ? QList<int>{element + 1} : QList<int>(); };
    EXPECT_GT(idsOf(deep, Accessibility::unlimited, 2s).size(), 10); // and it ends, as far as time allowed

    const auto wide = [](int element) {
        QList<int> children;
        for (int child = 1; element == 0 && child <= 100'000; ++child) {
            children.append(child);
        }
        return children;
    };
    EXPECT_EQ(idsOf(wide, 1500, 50s).size(), 1500);
    EXPECT_LT(idsOf(wide, Accessibility::unlimited, 1s).size(), 100'000);
}

} // namespace
