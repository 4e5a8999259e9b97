#pragma once

#include "GuideTables.h"

#include <QStringList>

#include <expected>

// The guide is Markdown with comments that say what of it can be checked:
//
//   <!-- generated: NAME --> ... <!-- end -->   made from the code's tables
//   <!-- requests: ROUTE [CASE] -->             before a table: the code spans of its first column are
//   requests
//                                               that take this route, as `kelvalr --explain` names it; with
//                                               ", Lightroom in front" while Lightroom is
//   <!-- spoken: ROUTE [CASE] -->               the same for what is said behind the wake phrase
//   <!-- sentences -->                          before a table: what stands in quotes in its first column
//                                               is said by the program; "…" stands for what changes
//
// Words in bold are what stands on the window's controls.

namespace KelvaLR::UserGuide {

/// A request that the guide gives for an example.
struct Example
{
    QString text; ///< as `kelvalr --explain` takes it
    QString route;
    QString commandCase; ///< may be empty
    bool isLightroomFrontmost = false;

    bool operator==(const Example &) const = default;
};

/// The guide with its generated parts made anew, or one sentence that says what is wrong with its markers.
[[nodiscard]] std::expected<QString, QString> withTables(const QString &guide,
                                                         std::span<const GuideTable> tables);

/// The names of the generated parts in which two versions of the guide differ, in order.
[[nodiscard]] QStringList differingTables(const QString &guide, const QString &other);

/// In order, or one sentence that says which marker is followed by no request.
[[nodiscard]] std::expected<QList<Example>, QString> examples(const QString &guide);

/// What has to stand in the program, in order: the pieces of the sentences that it says, and the names of
/// its controls.
[[nodiscard]] QStringList quotations(const QString &guide);

} // namespace KelvaLR::UserGuide
