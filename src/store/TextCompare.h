// Comparing texts without regard to letter case, in every script. Texts are UTF-8, as the database holds
// them.
#pragma once

#include <string_view>

namespace vorlina {

// Negative, 0 or positive, as the first text sorts before, with or behind the second: by code points after
// simple case folding. Texts that differ in case alone are equal; broken UTF-8 compares byte by byte.
int CompareFolded(std::string_view first, std::string_view second);

// SQL's LIKE without regard to case: "%" stands for any text, "_" for one character. An escape other than 0
// takes the character behind it as it stands.
bool MatchesLike(std::string_view pattern, std::string_view text, char32_t escape = 0);

}  // namespace vorlina
