// The numbered message table. A form asks for BaseErrore + n or BaseConferma + n, so that one expression
// serves both languages.
#pragma once

#include <QString>

namespace vorlina {

// The text of a number: 101 to 109 and 401 to 409 the wizard's buttons and steps, 200 to 204 and 500 to 504
// errors, 300 to 311 and 600 to 611 confirmations. "" for any other number, as when no language is set.
QString NumberedText(int number);

}  // namespace vorlina
