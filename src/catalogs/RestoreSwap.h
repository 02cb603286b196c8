// The moment of a restore in which old and new change places. A journal in the application folder says what
// is to happen before any of it does, so that whoever finds it can bring the change to its end, or take it
// back.
#pragma once

#include <QString>
#include <QStringList>

namespace vorlina {

// The folder in an application folder in which a restore is got ready.
QString StagingFolder(const QString& folder);

// The folder in an application folder that keeps what was there before the last restore.
QString FormerFolder(const QString& folder);

// The folders that keep what was there before a restore: that one, and those that bear a date since it could
// not go for them.
QStringList FormerFolders(const QString& folder);

// Where a restore would put what is there; the time of a dated name is left open.
QString NextFormerFolder(const QString& folder, bool databaseAlone);

// Changes places: what a restore replaces goes to a dated folder, what lies in the staging folder comes in,
// and when all of it is in place the dated folder takes the place of that of the restore before. Gives the
// folder in which the former state lies now; "" where there was none. Throws Error, with everything as it
// was. The database alone changes places with its companions; pictures and layouts then stay.
QString SwapIn(const QString& folder, bool databaseAlone);

// Whether a change of places was begun and is neither finished nor taken back.
bool IsSwapPending(const QString& folder);

// Brings a restore that was cut short in AppPath() to its end, or takes it back; what was only being got
// ready is removed. It is called at the start of every program, before anything else touches the folder.
// Gives what was done, fit to be shown; "" when there was nothing to do. Throws Error when a restore is going
// on, or cannot be finished.
QString FinishInterruptedRestore();

// The same for a folder that the caller holds alone.
QString FinishInterruptedRestore(const QString& folder);

}  // namespace vorlina
