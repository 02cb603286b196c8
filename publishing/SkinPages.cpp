#include "SkinPages.h"

namespace publishing {

// On one thread.
class SkinPages::Maker_ : public PageMaker {
 public:
  explicit Maker_(const SkinPages& pages) : pages_(pages) {
    for (std::size_t kind = 0; kind < pages.sites_.size(); ++kind)
      shown_.emplace_back(pages.skin_.Names(), kind);
  }

  QByteArray LookAt(std::size_t page) override {
    kind_ = pages_.source_.kindOf(page);
    Fields& fields = shown_[kind_];
    fields.Clear();
    pages_.source_.tell(fields, page);
    return QByteArray::number(qulonglong(fields.Hash()), 36) +
           QByteArray::number(qulonglong(pages_.sites_[kind_].Hash()), 36) + pages_.skin_.HashOf(kind_);
  }

  std::string Make() override {
    shown_[kind_].Complete();
    std::string text;
    text.reserve(length_);
    pages_.skin_.Write(kind_, pages_.sites_[kind_].Tree(), shown_[kind_].Tree(), text);
    length_ = std::max(length_, text.size() + Mark);
    return text;
  }

 private:
  static constexpr std::size_t Mark = 256;  // what is added to a page

  const SkinPages& pages_;
  std::vector<Fields> shown_;  // by kind: the page that was looked at last
  std::size_t kind_ = 0;
  std::size_t length_ = 0;  // of the longest page
};

SkinPages::SkinPages(const Skin& skin, Source source) : skin_(skin), source_(std::move(source)) {
  for (std::size_t kind = 0; kind < skin_.Kinds(); ++kind) {
    sites_.emplace_back(skin_.Names(), kind);
    source_.tellSite(sites_[kind]);
    sites_[kind].Complete();
  }
}

NewPageMaker SkinPages::Maker() const {
  return [this] { return std::make_unique<Maker_>(*this); };
}

}  // namespace publishing
