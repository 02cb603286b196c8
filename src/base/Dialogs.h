// The seam through which every message box, question, input box and file or folder chooser goes. The program
// installs the real one; tests install one that checks what is asked and gives scripted answers.
#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace vorlina {

enum class BoxStyle {
  Plain = 0,
  Stop = 16,
  Question = 36,          // Yes and No, Yes is the default
  QuestionNoFirst = 292,  // Yes and No, No is the default
  Information = 64,
};

enum class Chooser { Open, OpenSeveral, Save };

// What a chooser of files is told, and what it tells.
struct FileChoice {
  QString title;
  QString filter;           // "Description|*.jpg;*.jpeg|Other|*.*"
  QString initial = {};     // the folder that it begins in, with or without a file's name behind it
  QString defaultExt = {};  // what a typed name without an ending gets, without the point
  int filterIndex = 1;      // the entry of the filter, from 1; then the one that was chosen
};

// A filter in the form "Documents (*.docx)" in that of a FileChoice.
QString FilterFrom(const QString& filter);

class Dialogs {
 public:
  virtual ~Dialogs() = default;

  // Shows the text, as plain text, with OK. An empty text shows nothing, and an empty title is the program's
  // name.
  void Message(QWidget* owner, const QString& text, BoxStyle style = BoxStyle::Plain,
               const QString& title = {});
  // Asks with Yes and No; true for Yes. An empty text asks nothing and gives false.
  bool Ask(QWidget* owner, const QString& text, BoxStyle style = BoxStyle::Question,
           const QString& title = {});
  // Yes, No or Cancel.
  enum class Answer { Yes, No, Cancel };
  virtual Answer AskWithCancel(QWidget* owner, const QString& text, const QString& title = {}) = 0;
  // Asks with Yes and No whether to save; Cancel where the box was closed without either, which is no reason
  // to lose anything.
  virtual Answer AskToSave(QWidget* owner, const QString& text);
  // A line of text; when cancelled a null one, which is empty as well.
  virtual QString Input(QWidget* owner, const QString& text, const QString& title,
                        const QString& initial) = 0;
  // The paths chosen, in native separators; none when cancelled. What is not overridden goes by the three
  // below, and leaves the entry of the filter as it was.
  virtual QStringList ChooseFiles(QWidget* owner, Chooser kind, FileChoice& choice);
  // A filter is that of a FileChoice. The path chosen, "" when cancelled.
  virtual QString OpenFile(QWidget* owner, const QString& title, const QString& filter,
                           const QString& folder) = 0;
  // The same for one file or several; none when cancelled.
  virtual QStringList OpenFiles(QWidget* owner, const QString& title, const QString& filter,
                                const QString& folder) = 0;
  virtual QString SaveFile(QWidget* owner, const QString& title, const QString& filter,
                           const QString& initial) = 0;
  virtual QString Folder(QWidget* owner, const QString& title, const QString& initial) = 0;
  // One of the choices, -1 when cancelled. A text for `other` adds a button for something else, which gives
  // the number of choices. What is not overridden takes none.
  virtual int Choose(QWidget* owner, const QString& title, const QString& question,
                     const QStringList& choices, int current, const QString& other);
  // A colour, "#rrggbb", "" when cancelled. What is not overridden chooses none.
  virtual QString Colour(QWidget* owner, const QString& title, const QString& initial);

 protected:
  virtual void ShowMessage(QWidget* owner, const QString& text, BoxStyle style, const QString& title) = 0;
  virtual bool ShowQuestion(QWidget* owner, const QString& text, BoxStyle style, const QString& title) = 0;
};

// The dialogs in force. Throws std::logic_error when none were installed.
Dialogs& TheDialogs();
// Installs dialogs, which outlive their use; null takes them away.
void InstallDialogs(Dialogs* dialogs);

// Shows the shell's folder chooser. The path chosen, in native separators, or "" when it was cancelled.
QString BrowseForFolder(const QString& title, QWidget* owner, const QString& initial);

// "Errore: " or "Error: " and the description with a stop icon; nothing when no language is set.
void ShowError(QWidget* owner, const QString& description);

}  // namespace vorlina
