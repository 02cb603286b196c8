// Shows a help file: its caller says which and what of it, and calls one of the display methods. There is one
// viewer, which all of them show. What fails is told in a box; nothing is thrown.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class QWidget;

namespace vorlina {

class frmHelp;

class HTMLHelp {
 public:
  QString CHMFile;
  int HHTopicID = 0;
  QString HHTopicURL;  // a page's name in the file, with or without an anchor, such as "filters.html#values"
  QString HHKeyword;   // a word of the index
  QString HHDefaultURL;  // the page to be shown where the word is none
  QString HHMsgTitle;    // of the message where there is no such page either
  QString HHMsgText;
  bool HHShowOnTop = false;  // over the owner, which then has to be given

  void HHDisplayTopicID(QWidget* owner = nullptr) const;
  void HHDisplayTopicURL(QWidget* owner = nullptr) const;
  void HHDisplayContents(QWidget* owner = nullptr) const;
  void HHDisplayIndex(QWidget* owner = nullptr) const;
  void HHDisplaySearch(QWidget* owner = nullptr) const;
  void HHDisplayKeyword(QWidget* owner = nullptr) const;
  // The page of the first of these names, of windows and commands, that has one; else the contents.
  void DisplayFirstOf(const QStringList& names) const;
  // Closes the viewer, whoever opened it.
  static void HHClose();

  // Whether a help file is there and may be one; what is wrong is told. A name without a folder is looked for
  // beside the program.
  static bool EnsureFileExists(const QString& name, QWidget* owner = nullptr);

 private:
  using Step = std::function<void(frmHelp&)>;
  void Display(QWidget* owner, const QString& method, const Step& step) const;
};

// Help on a topic, in the language with this English name.
void ShowHelpTopic(int topic, const QString& language);

}  // namespace vorlina
