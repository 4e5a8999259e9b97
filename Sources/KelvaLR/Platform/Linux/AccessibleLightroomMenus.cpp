#include "Platform/Linux/AccessibleLightroomMenus.h"

#include "Platform/Accessibility.h"
#include "Platform/RunningLightroom.h"

#include <QCoroTimer>

#include <algorithm>
#include <array>
#include <functional>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array menuRoles{"AXMenuItem"_L1, "AXMenu"_L1};

using TitleTest = std::function<bool(const QString &)>;

TitleTest isTitled(const QString &wanted)
{
    return [wanted](const QString &title) { return title == wanted; };
}

TitleTest isTitledWith(const QString &part)
{
    return [part](const QString &title) { return title.contains(part); };
}

ElementPlaces menuElements(const AccessibilityTree &tree)
{
    ElementPlaces places;
    for (qsizetype place = 0; place < tree.size(); ++place) {
        if (std::ranges::find(menuRoles, tree.at(place).role) != menuRoles.end()) {
            places.append(place);
        }
    }
    return places;
}

/// Whether an element lies inside a menu item of this title.
bool isBelow(const AccessibilityTree &tree, qsizetype place, const TitleTest &menu)
{
    for (auto around = tree.at(place).parent; around; around = tree.at(*around).parent) {
        if (menu(tree.at(*around).title.value_or(QString()))) {
            return true;
        }
    }
    return false;
}

/// Lightroom's menu items of these titles inside a menu of that one, after it has come forward.
QCoro::Task<QList<AccessibilityElementID>>
menuItems(RunningApplications *applications, Accessibility *accessibility, RunningApplication lightroom,
          std::chrono::milliseconds activation, TitleTest menu, TitleTest item)
{
    applications->activate(lightroom);
    co_await QCoro::sleepFor(activation);
    AccessibilityTree tree = co_await accessibility->tree(lightroom.processId, Accessibility::unlimited);
    const ElementPlaces places = menuElements(tree);
    tree = co_await accessibility->withAttributes(std::move(tree), places, ElementAttribute::title);
    QList<AccessibilityElementID> found;
    for (const qsizetype place : places) {
        if (item(tree.at(place).title.value_or(QString())) && isBelow(tree, place, menu)) {
            found.append(tree.at(place).id);
        }
    }
    co_return found;
}

} // namespace

AccessibleLightroomMenus::AccessibleLightroomMenus(RunningApplications &applications,
                                                   Accessibility &accessibility,
                                                   std::chrono::milliseconds activation)
    : m_applications(applications)
    , m_accessibility(accessibility)
    , m_activation(activation)
{
}

QCoro::Task<std::expected<QString, QString>> AccessibleLightroomMenus::clickBridgeStatus()
{
    using Answer = std::expected<QString, QString>;
    const auto lightroom = runningLightroom(m_applications);
    if (!lightroom) {
        co_return Answer(u"Lightroom Classic is not running"_s);
    }
    if (!m_accessibility.isTrusted(TrustPrompt::silent)) {
        co_return std::unexpected(u"KelvaLR may not control other programs yet."_s);
    }
    Accessibility *const accessibility = &m_accessibility;
    const auto items = co_await menuItems(&m_applications, accessibility, *lightroom, m_activation,
                                          isTitled(u"Plug-in Extras"_s), isTitledWith(u"KelvaLR Status"_s));
    for (const AccessibilityElementID &item : items) {
        if (co_await accessibility->press(item)) {
            co_return Answer(u"started"_s);
        }
    }
    co_return Answer(u"KelvaLR Status was not found in Lightroom Classic > Plug-in Extras"_s);
}

QCoro::Task<> AccessibleLightroomMenus::openPluginManager()
{
    const auto lightroom = runningLightroom(m_applications);
    if (!lightroom || !m_accessibility.isTrusted(TrustPrompt::shown)) {
        co_return;
    }
    Accessibility *const accessibility = &m_accessibility;
    const auto items = co_await menuItems(&m_applications, accessibility, *lightroom, m_activation,
                                          isTitled(u"File"_s), isTitled(u"Plug-in Manager..."_s));
    if (!items.isEmpty()) {
        co_await accessibility->press(items.constFirst());
    }
}

} // namespace KelvaLR
