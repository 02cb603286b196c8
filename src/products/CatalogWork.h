// What is at work on a whole catalog for some time, while windows stay in use. It stays for as long as the
// object does.
#pragma once

namespace vorlina {

class CatalogWork {
 public:
  enum class Kind { Import, Publication };

  CatalogWork(int IDCatalogo, Kind kind);
  ~CatalogWork();
  CatalogWork(const CatalogWork&) = delete;
  CatalogWork& operator=(const CatalogWork&) = delete;

  // For what does not go together with it. Throws Error, which says what is at work.
  static void RequireNone(int IDCatalogo);
  // The same for what does not go together with work on any catalog.
  static void RequireNone();

 private:
  int IDCatalogo_;
  Kind kind_;
};

}  // namespace vorlina
