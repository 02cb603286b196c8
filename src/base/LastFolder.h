// Choosers that begin where the user last chose for the same purpose. The folders stand in the user's
// settings, in the section "Cartelle", one key a purpose.
#pragma once

#include <QString>
#include <QStringList>

class QWidget;

namespace vorlina {

namespace purpose {
inline constexpr char16_t Pictures[] = u"Immagini";
inline constexpr char16_t Import[] = u"Importazione";
inline constexpr char16_t Logo[] = u"Logo";
inline constexpr char16_t Plugins[] = u"Plugin";
inline constexpr char16_t Backups[] = u"Backup";
}  // namespace purpose

// "" where nothing was chosen yet, and where the folder has gone.
QString LastFolder(QStringView purpose);
// Remembers the folder that a file was chosen from. "" changes nothing, and a failure is only logged: what
// was chosen counts all the same.
void RememberFolderOf(QStringView purpose, const QString& file);

// The choosers of Dialogs, each with its purpose.
QString OpenFileFor(QStringView purpose, QWidget* owner, const QString& title, const QString& filter);
QStringList OpenFilesFor(QStringView purpose, QWidget* owner, const QString& title, const QString& filter);
QString FolderFor(QStringView purpose, QWidget* owner, const QString& title);

}  // namespace vorlina
