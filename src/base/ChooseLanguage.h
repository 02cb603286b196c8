// Which language the program speaks.
#pragma once

namespace vorlina {

// Settles the language: the setting Generali/Language; where that is empty, Italian on an Italian system,
// else English, which is not saved. Sets the two bases.
void ChooseLanguage();

}  // namespace vorlina
