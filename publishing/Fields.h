// What a page is made of, told name by name. One procedure tells it, and it is told twice: to FieldHash,
// which finds out whether the page that was made from it is still the right one, and to FieldData, which
// gives the templates what they see.
#pragma once

#include <QByteArray>
#include <functional>
#include <set>
#include <string>

#include <kainjow/mustache.hpp>

namespace publishing {

using Data = kainjow::mustache::data;

class Fields {
 public:
  using Tell = std::function<void(Fields&)>;
  using TellItem = std::function<void(Fields&, std::size_t)>;

  virtual ~Fields() = default;
  virtual void Text(const char* name, const std::string& text) = 0;
  virtual void Flag(const char* name, bool value) = 0;
  virtual void Group(const char* name, const Tell& tell) = 0;
  virtual void List(const char* name, std::size_t count, const TellItem& tell) = 0;
  // What is told here follows from these bytes alone: a hash is spared the work.
  virtual void Derived(const QByteArray& from, const Tell& tell) = 0;

  // An empty text, group or list does not exist for a template.
  void TextIf(const char* name, const std::string& text);
  void GroupIf(bool condition, const char* name, const Tell& tell);
};

// The hash of what is told under the names that a template uses, or of everything.
class FieldHash : public Fields {
 public:
  explicit FieldHash(const std::set<std::string, std::less<>>* names = nullptr) : names_(names) {
    told_.reserve(UsualLength);
  }
  void Text(const char* name, const std::string& text) override;
  void Flag(const char* name, bool value) override;
  void Group(const char* name, const Tell& tell) override;
  void List(const char* name, std::size_t count, const TellItem& tell) override;
  void Derived(const QByteArray& from, const Tell& tell) override;
  QByteArray Result() const;

 private:
  static constexpr std::size_t UsualLength = 1024;

  bool Begin(const char* name, char kind);
  void Add(const char* bytes, std::size_t size);

  const std::set<std::string, std::less<>>* names_;
  std::string told_;
};

// What is told, as a template sees it. Control characters, which no page may hold, are left out.
class FieldData : public Fields {
 public:
  void Text(const char* name, const std::string& text) override;
  void Flag(const char* name, bool value) override { data_[name] = Data{value}; }
  void Group(const char* name, const Tell& tell) override;
  void List(const char* name, std::size_t count, const TellItem& tell) override;
  void Derived(const QByteArray&, const Tell& tell) override { tell(*this); }
  Data Take() { return std::move(data_); }

 private:
  Data data_;
};

}  // namespace publishing
