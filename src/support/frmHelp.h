// The viewer of the help. There is one; it is a window of its own beside all others, and stays usable while
// one of them waits for an answer.
#pragma once

#include <QMainWindow>
#include <map>
#include <memory>

class QTreeWidgetItem;

namespace vorlina {

class WidgetHelpCollection;

namespace Ui {
class frmHelp;
}

class frmHelp : public QMainWindow {
  Q_OBJECT

 public:
  enum class Pane { Contents, Index, Search };

  frmHelp();
  ~frmHelp() override;

  // The viewer with a help file, which it brings in the place of the one that it shows; it is shown by
  // ComeToFront. Throws Error.
  static frmHelp& Open(const QString& file);
  // The one that is open; null where there is none.
  static frmHelp* Shown();

  // Shows it, over the owner where there is one.
  void ComeToFront(QWidget* owner = nullptr);
  // The page of the first of these topics, windows or commands that has one; else the first page, with the
  // contents.
  void ShowFirstOf(const QStringList& identifiers);
  // A page by its file's name, with or without an anchor; else the first page.
  void ShowPage(const QString& name);
  // False where the index does not have the word.
  bool ShowKeyword(const QString& keyword);
  void ShowPane(Pane pane);

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeToolbar();
  void MakeFindBar();
  void ConnectPanes();
  void Localize_Form();
  void LoadForm();
  void UseFile(const QString& file);
  WidgetHelpCollection& CollectionOf(const QString& file);

  void Go(const QUrl& url);
  void ShowHome();
  void FillIndex();
  void FilterIndex();
  void FillSearch();
  void GoToItem(const QTreeWidgetItem* item);
  void SelectInContents();
  void ShowOtherLanguage();
  void OpenFind();
  void CloseFind();
  void Find();
  void Step(int by);
  void Zoom(int by);
  void BeUsable();
  void StoreZoom() const;

  std::unique_ptr<Ui::frmHelp> ui_;
  std::map<QString, std::unique_ptr<WidgetHelpCollection>> collections_;  // by file
  WidgetHelpCollection* collection_ = nullptr;
};

}  // namespace vorlina
