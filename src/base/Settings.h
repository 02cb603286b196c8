// The per-user settings store: (application, section, key) to a text. A key that the user's settings do not
// have is taken from the settings that were delivered, a file of the same form beside the program; where both
// miss it, it gives the caller's default. Neither is stored.
#pragma once

#include <QString>

namespace vorlina {

// The application's title, "Vorlina": the application name of every key but Generali/DownloadPath.
QString ApplicationTitle();

// The value of a key as text, or fallback when the key is missing or holds something that is no text.
QString GetSetting(const QString& application, const QString& section, const QString& key,
                   const QString& fallback);

// Whether the user's own settings have the key.
bool IsSetByUser(const QString& application, const QString& section, const QString& key);

// Stores the text at once. Throws Error when it cannot be written; the former file then stands.
void SaveSetting(const QString& application, const QString& section, const QString& key,
                 const QString& value);

// Keeps the settings below this folder instead of the user's own; for tests and tools, before the first use.
void SetSettingsFolder(const QString& folder);

}  // namespace vorlina
