#include "Window/PhotoBar.h"

#include "Catalog/Catalog.h"
#include "Window/FlagAndStars.h"
#include "Window/KeywordField.h"
#include "Window/PhotoActions.h"
#include "Window/Theme.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace StandIn {

PhotoBar::PhotoBar(const Catalog &catalog, PhotoActions &actions)
    : m_catalog(catalog)
    , m_name(new QLabel)
    , m_place(new QLabel)
    , m_symbols(new FlagAndStars)
    , m_keywords(new QLabel)
{
    auto *field = new KeywordField;
    field->setFixedWidth(56 * Theme::unit);
    m_name->setFont(Theme::headingFont());
    for (QLabel *quiet : {m_place, m_keywords}) {
        quiet->setObjectName(u"secondary"_s);
        quiet->setFont(Theme::smallFont());
    }
    m_keywords->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_keywords->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(Theme::medium, 0, Theme::medium, 0);
    layout->setSpacing(Theme::medium);
    layout->addWidget(m_name);
    layout->addWidget(m_place);
    layout->addWidget(m_symbols);
    layout->addWidget(m_keywords, 1);
    layout->addWidget(field);
    setFixedHeight(Theme::barHeight);
    connect(field, &KeywordField::entered, &actions, &PhotoActions::addKeywords);
    connect(field, &KeywordField::left, this, &PhotoBar::keywordFieldLeft);
    connect(&catalog.changes(), &CatalogChanges::selectionChanged, this, &PhotoBar::present);
    connect(&catalog.changes(), &CatalogChanges::photosAdded, this, &PhotoBar::present);
    connect(&catalog.changes(), &CatalogChanges::photosChanged, this, &PhotoBar::present);
    present();
}

void PhotoBar::present()
{
    const Photo *photo = m_catalog.photo(m_catalog.activePhoto().value_or(0));
    const PhotoState state = photo ? m_catalog.state(photo->id).value_or(PhotoState()) : PhotoState();
    m_name->setText(photo ? QFileInfo(photo->path).fileName() : QString());
    m_place->setText(
        photo ? u"%1 of %2"_s.arg(QString::number(photo->id), QString::number(m_catalog.photos().size()))
              : QString());
    m_symbols->setVisible(photo != nullptr);
    m_symbols->present(state.pickStatus, state.rating.value_or(0));
    m_keywords->setText(state.keywords.join(u", "_s));
    m_keywords->setToolTip(m_keywords->text());
}

} // namespace StandIn
