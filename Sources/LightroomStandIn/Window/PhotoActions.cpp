#include "Window/PhotoActions.h"

#include "Catalog/Catalog.h"
#include "Catalog/DevelopSettingTable.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace StandIn {

namespace {

QString flagAnswer(int pickStatus)
{
    if (pickStatus == 0) {
        return u"Remove Flag"_s;
    }
    return pickStatus > 0 ? u"Set Flag to Pick"_s : u"Set Flag to Reject"_s;
}

} // namespace

PhotoActions::PhotoActions(Catalog &catalog)
    : m_catalog(catalog)
{
}

void PhotoActions::setPickStatus(int pickStatus)
{
    change({.pickStatus = pickStatus}, flagAnswer(pickStatus));
}

void PhotoActions::setRating(int stars)
{
    change({.rating = stars},
           stars == 0 ? u"Set Rating to None"_s : u"Set Rating to %1"_s.arg(QString::number(stars)));
}

void PhotoActions::setDevelop(const DevelopSetting &setting, double value)
{
    const QString text = setting.text(value);
    change({.develop = {{setting.property, text}}}, u"%1 %2"_s.arg(setting.label, text));
}

void PhotoActions::addKeywords(const QString &words)
{
    const auto active = m_catalog.activePhoto();
    const auto state = m_catalog.state(active.value_or(0));
    if (!state) {
        Q_EMIT failed(state.error());
        return;
    }
    QStringList keywords = state->keywords;
    for (const QString &word : words.split(u',', Qt::SkipEmptyParts)) {
        keywords.append(word.simplified());
    }
    keywords.removeAll(QString());
    keywords.removeDuplicates();
    change({.keywords = keywords}, u"Add Keywords"_s);
}

void PhotoActions::step(int places)
{
    if (const auto active = m_catalog.activePhoto()) {
        // Ids are places from 1 on.
        selectOnly(std::clamp(*active + places, 1, static_cast<int>(m_catalog.photos().size())));
    }
}

void PhotoActions::selectOnly(int id)
{
    m_catalog.select(id, {id});
}

void PhotoActions::toggleSelected(int id)
{
    std::vector<int> selected = m_catalog.selectedPhotos();
    const auto found = std::ranges::find(selected, id);
    if (found == selected.end()) {
        selected.push_back(id);
        m_catalog.select(id, selected);
    } else if (selected.size() > 1) {
        selected.erase(found);
        const int active = m_catalog.activePhoto().value_or(id);
        m_catalog.select(active == id ? selected.front() : active, selected);
    }
}

void PhotoActions::change(const PhotoChanges &changes, const QString &answer)
{
    const auto active = m_catalog.activePhoto();
    if (!active) {
        Q_EMIT answered(u"No photo is selected"_s);
    } else if (const auto changed = m_catalog.changeNow(*active, changes); !changed) {
        Q_EMIT failed(changed.error());
    } else {
        Q_EMIT answered(answer);
    }
}

} // namespace StandIn
