pragma Singleton

import QtQuick

/// Every colour, size and duration of the window. The window keeps the first two properties up to date.
QtObject {
    property bool isDark: false
    property bool isMotionReduced: false

    readonly property color window: isDark ? "#1C1C1E" : "#FFFFFF"
    readonly property color panel: isDark ? "#232326" : "#FAFAFA"
    readonly property color control: isDark ? "#2E2E32" : "#F2F2F4"
    readonly property color controlPressed: isDark ? "#3A3A3E" : "#E3E3E6"
    readonly property color hairline: isDark ? "#3A3A3E" : "#E3E3E6"
    readonly property color text: isDark ? "#F5F5F7" : "#1D1D1F"
    readonly property color secondaryText: isDark ? "#A1A1A6" : "#6C6C70"
    readonly property color accent: isDark ? "#3B8CFF" : "#0A6CFF"
    readonly property color success: isDark ? "#3DD06B" : "#1A7F3C"
    readonly property color failure: isDark ? "#FF6159" : "#D92D20"
    readonly property color attention: isDark ? "#FFA033" : "#D97706"
    readonly property color accentText: "#FFFFFF"
    readonly property color scrim: "#B8000000"

    /// By the raw value of the voice state.
    readonly property var voiceColors: ({
            "idle": accent,
            "connecting": attention,
            "recording": isDark ? "#3DD06B" : "#1E9E4A",
            "speaking": isDark ? "#4CCBE6" : "#0891B2",
            "failed": failure
        })

    readonly property int unit: 4
    readonly property int cellRadius: 8
    readonly property int focusRing: 2

    readonly property string fontFamily: Qt.platform.os === "osx" ? "" : "Inter"
    readonly property int captionSize: 11
    readonly property int smallSize: 12
    readonly property int bodySize: 14
    readonly property int thirdTitleSize: 16
    readonly property int secondTitleSize: 19
    readonly property int titleSize: 23
    readonly property int largeTitleSize: 28

    readonly property int quickly: isMotionReduced ? 0 : 150

    /// A line of one device pixel.
    function hairlineWidth(devicePixelRatio: real): real {
        return 1 / Math.max(1, devicePixelRatio);
    }
}
