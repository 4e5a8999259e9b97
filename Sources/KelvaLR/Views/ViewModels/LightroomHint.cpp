#include "Views/ViewModels/LightroomHint.h"

#include "Support/Overloaded.h"

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

LightroomHint hintOf(const Connection::LightroomNotRunning &found)
{
    const QString finding = u"Lightroom Classic is not running."_s;
    if (found.isLightroomInstalled) {
        return {finding, u"Open it, then send your request."_s, {u"openLightroom"_s}};
    }
    return {finding, u"Start it on this computer, then send your request."_s, {}};
}

LightroomHint hintOf(const Connection::PluginNotLoaded &found)
{
    if (found.isPluginInstalled) {
        return {u"Lightroom is running, but the KelvaLR plug-in is not loaded."_s,
                u"Add or enable it in the Plug-in Manager, then restart Lightroom."_s,
                {u"openPluginManager"_s, u"revealInstalledPlugin"_s}};
    }
    return {u"Lightroom is running, but the KelvaLR plug-in is not installed."_s,
            u"Install it, then add it in the Plug-in Manager."_s,
            {u"installPlugin"_s, u"openPluginManager"_s}};
}

LightroomHint hintOf(const Connection::PortTaken &found)
{
    if (found.program.isEmpty()) {
        return {u"A program that KelvaLR cannot identify uses port %1 and does not answer."_s.arg(found.port),
                u"If it is Lightroom, close the dialog it shows. If not, quit it and restart Lightroom."_s,
                {u"testConnection"_s}};
    }
    return {u"Port %1, which the KelvaLR plug-in needs, is used by %2."_s.arg(QString::number(found.port),
                                                                              found.program),
            u"Quit that program, then restart Lightroom."_s,
            {u"testConnection"_s}};
}

LightroomHint hintOf(const Connection::NoAnswer &)
{
    return {
        u"Lightroom is running, but does not answer."_s,
        u"Close the dialog that Lightroom shows. It may then do what you asked, so look before you repeat it."_s,
        {u"testConnection"_s}};
}

LightroomHint hintOf(const Connection::Usable &)
{
    return {};
}

} // namespace

LightroomHint lightroomHint(const LightroomConnection &connection)
{
    return std::visit([](const auto &found) { return hintOf(found); }, connection);
}

} // namespace KelvaLR
