#include "support/WidgetHelpCollection.h"

#include <QDir>
#include <QHelpIndexModel>
#include <QHelpLink>
#include <algorithm>

#include "base/Error.h"
#include "base/Texts.h"

namespace vorlina {
namespace {

Error Unreadable(const QString& file, const QString& reason) {
  return Error(Texts::tr("Impossibile aprire l'aiuto %1: %2").arg(QDir::toNativeSeparators(file), reason));
}

}  // namespace

WidgetHelpCollection::WidgetHelpCollection(const QString& file) : file_(file) {
  if (!folder_.isValid()) throw Unreadable(file, folder_.errorString());
  engine_ = std::make_unique<QHelpEngine>(folder_.filePath(u"help.qhc"_qs));
  engine_->setReadOnly(false);
  engine_->setUsesFilterEngine(true);
  namespace_ = QHelpEngineCore::namespaceName(file);
  if (!engine_->setupData() || namespace_.isEmpty() || !engine_->registerDocumentation(file))
    throw Unreadable(file, engine_->error());
}

// The threads that read contents and index for the engine are done with the folder before it goes.
WidgetHelpCollection::~WidgetHelpCollection() { engine_.reset(); }

std::optional<QUrl> WidgetHelpCollection::PageOf(const QString& identifier) const {
  const QList<QHelpLink> pages = engine_->documentsForIdentifier(identifier);
  if (pages.isEmpty()) return std::nullopt;
  return pages.first().url;
}

QList<QHelpLink> WidgetHelpCollection::PagesFor(const QString& keyword) const {
  QList<QHelpLink> pages = engine_->documentsForKeyword(keyword);
  for (const QString& word : engine_->indexModel()->stringList())
    if (pages.isEmpty() && word.compare(keyword, Qt::CaseInsensitive) == 0)
      pages = engine_->documentsForKeyword(word);
  QList<QHelpLink> once;
  for (const QHelpLink& page : pages)
    if (std::none_of(once.begin(), once.end(), [&](const QHelpLink& other) { return other.url == page.url; }))
      once += page;
  return once;
}

QUrl WidgetHelpCollection::Home() const {
  if (const std::optional<QUrl> page = PageOf(u"home"_qs)) return *page;
  return engine_->files(namespace_, QString(), u"html"_qs).value(0);
}

std::optional<QUrl> WidgetHelpCollection::PageNamed(const QString& name) const {
  for (const QUrl& page : engine_->files(namespace_, QString(), u"html"_qs))
    if (page.fileName() == name) return page;
  return std::nullopt;
}

std::vector<HelpHit> WidgetHelpCollection::Find(const QString& words) {
  if (!search_) {
    search_.emplace();
    for (const QUrl& page : engine_->files(namespace_, QString(), u"html"_qs))
      search_->Add(page, QString::fromUtf8(Content(page)));
  }
  return search_->Find(words);
}

}  // namespace vorlina
