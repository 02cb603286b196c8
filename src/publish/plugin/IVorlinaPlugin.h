// The plug-in interface of Vorlina, version 2. This header is all that a publishing plug-in needs, with
// VorlinaJob.h for what is to be published, VorlinaNames.h for the names of values and filters and
// VorlinaPrice.h for the one among them that is the price; it uses Qt Core and Qt Gui. plugins.md tells how a
// plug-in is built and installed, when what is called, and what the tables hold.
//
// A plug-in is a Qt plug-in library whose root object implements IVorlinaPluginFactory:
//
//   class Factory : public QObject, public IVorlinaPluginFactory {
//     Q_OBJECT
//     Q_PLUGIN_METADATA(IID VORLINA_PLUGIN_IID)
//     Q_INTERFACES(IVorlinaPluginFactory)
//    public:
//     std::unique_ptr<IVorlinaPlugin> CreatePlugin(const VorlinaHost& host) override {
//       return std::make_unique<MyPlugin>(host);
//     }
//   };
//
// All calls arrive on the thread of the user interface. A failure is told by throwing an exception derived
// from std::exception whose what() is UTF-8 text fit to be shown; the host catches whatever is thrown.
#pragma once

#include <QIcon>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>

#include "VorlinaJob.h"

// The version stands in the identifier, so that a library of another version is refused before any of its
// code runs.
#define VORLINA_PLUGIN_IID "vorlina.IVorlinaPluginFactory/2"

// The rows of a query, walked forward, as long as the call that opened them lasts. Column names are found in
// any letter case. A column that is Null gives a QVariant for which isNull() is true.
class IVorlinaRows {
 public:
  virtual ~IVorlinaRows() = default;
  // Steps to the next row, at first to row one. False at the end.
  virtual bool Next() = 0;
  virtual int ColumnCount() const = 0;
  virtual QString ColumnName(int column) const = 0;
  // The value of the current row. Throws where there is none, and for a column that does not exist.
  virtual QVariant Value(int column) const = 0;
  virtual QVariant Value(const QString& column) const = 0;
};

// The catalog database as a plug-in sees it, as long as a call lasts: SQL in SQLite's dialect, with "?" for
// each bound value.
class IVorlinaConnection {
 public:
  virtual ~IVorlinaConnection() = default;
  // Full path of the database file. The folder that holds it is the application folder, with "Images" and
  // "PubWiz".
  virtual QString DataSource() const = 0;
  // A statement that writes belongs between BeginTrans and CommitTrans. Without a transaction it throws, and
  // nothing of it is stored.
  virtual void Execute(const QString& sql, const QVariantList& values = {}) = 0;
  // Rows that are neither walked to the end nor released keep others from writing.
  virtual std::unique_ptr<IVorlinaRows> Open(const QString& sql, const QVariantList& values = {}) = 0;
  virtual void BeginTrans() = 0;
  virtual void CommitTrans() = 0;
  virtual void RollbackTrans() = 0;
};

// A publishing plug-in: five operations. The host makes a new object for each use and releases it afterwards.
class IVorlinaPlugin {
 public:
  virtual ~IVorlinaPlugin() = default;
  // The name in the list of plug-ins, in the user's language.
  virtual QString GetPluginName() = 0;
  // The picture beside the name, 32 by 32 pixels and 64 for dense screens; it may be empty.
  virtual QIcon GetPluginIcon() = 0;
  // Publishes the catalog with this Cataloghi.IDCatalogo, asking for whatever is to be asked. The result is
  // not read.
  virtual QVariant Publish(IVorlinaConnection& connection, int& IDCatalogo) = 0;
  // What the plug-in makes, in a sentence or two, shown when its list entry is clicked.
  virtual QString GetPluginDescription() = 0;
  // Installs a skin; an empty text means that the plug-in asks for the file. The result is not read.
  virtual QVariant InstallSkin(QString& skin) = 0;
};

// What a plug-in reports to while it works.
class IVorlinaProgress {
 public:
  virtual ~IVorlinaProgress() = default;
  // done of total steps are finished, and the step that is named begins. False asks the plug-in to stop: it
  // then leaves the target as it was.
  virtual bool Report(int done, int total, const QString& step) = 0;
};

// The part of a plug-in that publishes: without a question of its own but by VorlinaHost::ui, and without a
// window, since it may be used without a display.
class IVorlinaPublisher {
 public:
  virtual ~IVorlinaPublisher() = default;
  virtual VorlinaTarget Target() { return {}; }
  virtual QList<VorlinaOption> Options() { return {}; }
  // Makes the job's target, which may be missing, or have what was published there before. A report that is
  // not complete where the progress asked to stop; throws on a failure. Either way the target is as it was.
  virtual VorlinaReport Publish(IVorlinaConnection& connection, const VorlinaJob& job,
                                IVorlinaProgress& progress) = 0;
};

// The windows that the program shows for a plug-in. All texts are plain, in VorlinaHost::language.
class IVorlinaUi {
 public:
  virtual ~IVorlinaUi() = default;
  virtual void Tell(const QString& text) = 0;
  // Yes or no; no is what Enter answers. The details stand below the question.
  virtual bool Ask(const QString& question, const QString& details) = 0;
  // One of the choices, -1 for none. A text for `other` adds a button for something else, which gives the
  // number of choices.
  virtual int Choose(const QString& title, const QString& question, const QStringList& choices, int current,
                     const QString& other) = 0;
  // "" where the user gives none. The filter is such as "Skins (*.zip)"; purpose tells which folder to begin
  // in: that of the last file for it.
  virtual QString ChooseFile(const QString& title, const QString& filter, const QString& purpose) = 0;
  // Asks how and where to publish, shows a preview where the user wants one, has the publisher do it with a
  // progress window, and shows the report. What the user chose is kept with the catalog.
  virtual void Publish(IVorlinaPublisher& publisher, IVorlinaConnection& connection, int IDCatalogo) = 0;
};

// Pictures for readers, which the program makes once and keeps beside the catalog.
class IVorlinaPictures {
 public:
  virtual ~IVorlinaPictures() = default;
  // For each of the files the sizes that are asked for: longer sides in pixels. A size that is not smaller
  // than the picture itself is made in the picture's own size. Nothing where the progress asked to stop, else
  // as many as there are sources.
  virtual QList<VorlinaWebPictures> Prepare(const QStringList& sources, const QList<int>& sizes,
                                            IVorlinaProgress& progress) = 0;
};

// What a plug-in is told of the program that it works in, and what it may use of it.
struct VorlinaHost {
  QString language;           // "Italian" or "English", that of the program's windows
  QString applicationFolder;  // the user's application folder, where a plug-in may keep files of its own in
                              // "PubWiz"
  QString deliveredFolder;    // the folder of the program, which may be read-only; often the same
  IVorlinaPictures* pictures = nullptr;  // never null
  IVorlinaUi* ui = nullptr;              // null where there is no display
};

// The root object of a plug-in library. It may be used without a display: no widget is made in a constructor.
class IVorlinaPluginFactory {
 public:
  virtual ~IVorlinaPluginFactory() = default;
  virtual std::unique_ptr<IVorlinaPlugin> CreatePlugin(const VorlinaHost& host) = 0;
  // Null where the plug-in has none: then it is used by its windows alone.
  virtual std::unique_ptr<IVorlinaPublisher> CreatePublisher(const VorlinaHost& host) {
    Q_UNUSED(host);
    return nullptr;
  }
};
Q_DECLARE_INTERFACE(IVorlinaPluginFactory, VORLINA_PLUGIN_IID)
