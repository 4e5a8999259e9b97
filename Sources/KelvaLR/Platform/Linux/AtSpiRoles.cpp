#include "Platform/Linux/AtSpiRoles.h"

#include <algorithm>
#include <array>

namespace KelvaLR {

namespace {

/// Of the AtspiRole enumeration, what is told apart here.
enum Role : quint32 {
    checkBox = 7,
    checkMenuItem = 8,
    columnHeader = 10,
    comboBox = 11,
    dialog = 16,
    filler = 20,
    frame = 23,
    icon = 26,
    image = 27,
    label = 29,
    list = 31,
    listItem = 32,
    menu = 33,
    menuBar = 34,
    menuItem = 35,
    pageTab = 37,
    pageTabList = 38,
    panel = 39,
    passwordText = 40,
    popupMenu = 41,
    progressBar = 42,
    pushButton = 43,
    radioButton = 44,
    radioMenuItem = 45,
    scrollBar = 48,
    scrollPane = 49,
    slider = 51,
    spinButton = 52,
    splitPane = 53,
    table = 55,
    tableCell = 56,
    tearoffMenuItem = 59,
    text = 61,
    toggleButton = 62,
    toolBar = 63,
    tree = 65,
    treeTable = 66,
    window = 69,
    application = 75,
    entry = 79,
    heading = 83,
    link = 88,
    tableRow = 90,
    treeItem = 91,
    listBox = 98,
    grouping = 99,
    titleBar = 104,
    staticText = 116,
    pushButtonMenu = 129,
};

struct RoleRow
{
    Role role;
    QLatin1StringView name;
};

constexpr std::array roles{
    RoleRow{application, QLatin1StringView("AXApplication")},
    RoleRow{frame, QLatin1StringView("AXWindow")},
    RoleRow{window, QLatin1StringView("AXWindow")},
    RoleRow{dialog, QLatin1StringView("AXWindow")},
    RoleRow{pushButton, QLatin1StringView("AXButton")},
    RoleRow{toggleButton, QLatin1StringView("AXButton")},
    RoleRow{pushButtonMenu, QLatin1StringView("AXButton")},
    RoleRow{menuBar, QLatin1StringView("AXMenuBar")},
    RoleRow{menu, QLatin1StringView("AXMenu")},
    RoleRow{popupMenu, QLatin1StringView("AXMenu")},
    RoleRow{menuItem, QLatin1StringView("AXMenuItem")},
    RoleRow{checkMenuItem, QLatin1StringView("AXMenuItem")},
    RoleRow{radioMenuItem, QLatin1StringView("AXMenuItem")},
    RoleRow{tearoffMenuItem, QLatin1StringView("AXMenuItem")},
    RoleRow{checkBox, QLatin1StringView("AXCheckBox")},
    RoleRow{radioButton, QLatin1StringView("AXRadioButton")},
    RoleRow{pageTab, QLatin1StringView("AXRadioButton")},
    RoleRow{pageTabList, QLatin1StringView("AXTabGroup")},
    RoleRow{comboBox, QLatin1StringView("AXPopUpButton")},
    RoleRow{link, QLatin1StringView("AXLink")},
    RoleRow{passwordText, QLatin1StringView("AXTextField")},
    RoleRow{spinButton, QLatin1StringView("AXTextField")},
    RoleRow{label, QLatin1StringView("AXStaticText")},
    RoleRow{heading, QLatin1StringView("AXStaticText")},
    RoleRow{staticText, QLatin1StringView("AXStaticText")},
    RoleRow{tableRow, QLatin1StringView("AXRow")},
    RoleRow{listItem, QLatin1StringView("AXRow")},
    RoleRow{treeItem, QLatin1StringView("AXRow")},
    RoleRow{tableCell, QLatin1StringView("AXCell")},
    RoleRow{columnHeader, QLatin1StringView("AXCell")},
    RoleRow{slider, QLatin1StringView("AXSlider")},
    RoleRow{filler, QLatin1StringView("AXGroup")},
    RoleRow{panel, QLatin1StringView("AXGroup")},
    RoleRow{grouping, QLatin1StringView("AXGroup")},
    RoleRow{splitPane, QLatin1StringView("AXSplitGroup")},
    RoleRow{scrollPane, QLatin1StringView("AXScrollArea")},
    RoleRow{scrollBar, QLatin1StringView("AXScrollBar")},
    RoleRow{progressBar, QLatin1StringView("AXProgressIndicator")},
    RoleRow{toolBar, QLatin1StringView("AXToolbar")},
    RoleRow{image, QLatin1StringView("AXImage")},
    RoleRow{icon, QLatin1StringView("AXImage")},
    RoleRow{list, QLatin1StringView("AXList")},
    RoleRow{listBox, QLatin1StringView("AXList")},
    RoleRow{table, QLatin1StringView("AXTable")},
    RoleRow{tree, QLatin1StringView("AXOutline")},
    RoleRow{treeTable, QLatin1StringView("AXOutline")},
};

constexpr std::array menuRoles{menu, popupMenu, menuItem, checkMenuItem, radioMenuItem, tearoffMenuItem};
constexpr std::array tableRoles{list, listBox, table, tree, treeTable};

template <std::size_t size>
bool isOneOf(quint32 role, const std::array<Role, size> &known)
{
    return std::ranges::find(known, Role(role)) != known.end();
}

} // namespace

bool AtSpiKind::isOfMenu() const
{
    return isOneOf(role, menuRoles);
}

bool AtSpiKind::isTable() const
{
    return isOneOf(role, tableRoles);
}

bool AtSpiKind::isTitleBar() const
{
    return role == titleBar;
}

QString accessibilityRole(const AtSpiKind &kind)
{
    using namespace Qt::StringLiterals;
    if (kind.role == text || kind.role == entry) {
        if (!kind.isEditable()) {
            return u"AXStaticText"_s;
        }
        return kind.isMultiLine() ? u"AXTextArea"_s : u"AXTextField"_s;
    }
    const auto *row = std::ranges::find(roles, Role(kind.role), &RoleRow::role);
    return row == roles.end() ? u"AXUnknown"_s : QString(row->name);
}

} // namespace KelvaLR
