// The report of a publication in words.
#pragma once

#include <QHash>
#include <QString>
#include <vector>

#include "publish/plugin/VorlinaJob.h"

namespace vorlina {

struct ReportLine {
  QString code;  // "" where it is of no product
  QString name;  // the product's
  QString text;
};

// Notes of one kind.
struct ReportGroup {
  QString title;
  std::vector<ReportLine> lines;
  QString text;  // where all of several lines say the same
};

// What was published, and what changed, in a line each.
QString NumbersOf(const VorlinaReport& report);
QString ChangesOf(const VorlinaReport& report);

// The notes by their kinds, without the kinds that have none. The names are those of the products, by their
// codes.
std::vector<ReportGroup> GroupsOf(const VorlinaReport& report, const QHash<QString, QString>& names);

// A group's title with the number of its notes, and what they all say.
QString HeadOf(const ReportGroup& group);

// The whole of it, to be pasted elsewhere; columns are separated by tabulators. What was published is told
// first.
QString PlainReport(const VorlinaReport& report, const QString& what, const QString& target,
                    const std::vector<ReportGroup>& groups);

}  // namespace vorlina
