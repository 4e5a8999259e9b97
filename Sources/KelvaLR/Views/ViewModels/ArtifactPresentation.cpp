#include "Views/ViewModels/ArtifactPresentation.h"

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

struct KindRow
{
    ArtifactKind kind;
    QLatin1StringView title;
    QLatin1StringView symbol;
};

constexpr std::array kinds{
    KindRow{ArtifactKind::markdown, "Markdown"_L1, "doc.text"_L1},
    KindRow{ArtifactKind::note, "Note"_L1, "square.and.pencil"_L1},
    KindRow{ArtifactKind::progress, "Progress"_L1, "circle.dotted"_L1},
};

const KindRow &row(ArtifactKind kind)
{
    for (const KindRow &candidate : kinds) {
        if (candidate.kind == kind) {
            return candidate;
        }
    }
    return kinds.front();
}

} // namespace

QString title(ArtifactKind kind)
{
    return row(kind).title;
}

QString symbol(ArtifactKind kind)
{
    return row(kind).symbol;
}

QString title(ArtifactStatus status)
{
    switch (status) {
    case ArtifactStatus::ready:
        return u"Ready"_s;
    case ArtifactStatus::running:
        return u"Running"_s;
    case ArtifactStatus::needsReview:
        return u"Needs Review"_s;
    }
    return {};
}

} // namespace KelvaLR
