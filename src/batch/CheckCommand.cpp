#include <QJsonArray>
#include <algorithm>

#include "base/AppPath.h"
#include "base/Texts.h"
#include "batch/Commands.h"
#include "batch/Output.h"
#include "catalogs/CatalogCheck.h"

namespace vorlina {
namespace {

// The findings are ordered by kind.
QString TextOf(const std::vector<Finding>& findings) {
  QStringList lines;
  for (auto first = findings.begin(); first != findings.end();) {
    const auto last = std::find_if(first, findings.end(),
                                   [&](const Finding& finding) { return finding.kind != first->kind; });
    const QString kind = IsDamage(first->kind) ? Texts::tr("DANNO") : Texts::tr("Nota");
    lines += u"%1: %2 (%3)"_qs.arg(kind, TitleOf(first->kind)).arg(last - first);
    if (const QString advice = AdviceOn(first->kind); !advice.isEmpty()) lines += u"  "_qs + advice;
    QStringList found;
    for (; first != last; ++first)
      found += first->subject + (first->detail.isEmpty() ? QString() : u": "_qs + first->detail);
    lines += FirstOf(found);
  }
  return lines.join(u'\n');
}

}  // namespace

Outcome RunCheck(Connection& connection) {
  const std::vector<Finding> findings = CheckCatalogs(connection);
  const auto damage = std::count_if(findings.begin(), findings.end(),
                                    [](const Finding& finding) { return IsDamage(finding.kind); });
  QJsonArray list;
  for (const Finding& finding : findings)
    list.append(QJsonObject{{u"kind"_qs, NameOf(finding.kind)},
                            {u"damage"_qs, IsDamage(finding.kind)},
                            {u"subject"_qs, finding.subject},
                            {u"detail"_qs, finding.detail}});
  Outcome outcome;
  outcome.ok = damage == 0;
  outcome.json = {{u"folder"_qs, AppPath()}, {u"damage"_qs, qint64(damage)}, {u"findings"_qs, list}};
  outcome.text = findings.empty() ? Texts::tr("Tutto in ordine") : TextOf(findings);
  if (damage > 0) outcome.error = Texts::tr("Danni trovati: %1").arg(damage);
  return outcome;
}

}  // namespace vorlina
