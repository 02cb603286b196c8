// The commands of the help's viewer as data.
#pragma once

#include <QCoreApplication>
#include <array>

#include "base/Commands.h"

namespace vorlina {

inline constexpr std::array<ToolbarCommand, 7> ViewerCommands{{
    {u"cmdBack", QT_TRANSLATE_NOOP("Texts", "Indietro"),
     QT_TRANSLATE_NOOP("Texts", "Torna alla pagina di prima"), u"previous", u"Alt+Left"},
    {u"cmdForward", QT_TRANSLATE_NOOP("Texts", "Avanti"),
     QT_TRANSLATE_NOOP("Texts", "Torna alla pagina che seguiva"), u"next", u"Alt+Right"},
    {u"cmdHome", QT_TRANSLATE_NOOP("Texts", "Inizio"), QT_TRANSLATE_NOOP("Texts", "Prima pagina dell'aiuto"),
     u"home", u"Alt+Home"},
    {u"cmdFind", QT_TRANSLATE_NOOP("Texts", "Trova nella pagina"),
     QT_TRANSLATE_NOOP("Texts", "Cerca un testo nella pagina che si legge"), u"search", u"Ctrl+F"},
    {u"cmdSmaller", QT_TRANSLATE_NOOP("Texts", "A-"), QT_TRANSLATE_NOOP("Texts", "Caratteri più piccoli"),
     u"smaller", u"Ctrl+-"},
    {u"cmdLarger", QT_TRANSLATE_NOOP("Texts", "A+"), QT_TRANSLATE_NOOP("Texts", "Caratteri più grandi"),
     u"larger", u"Ctrl++"},
    {u"cmdLanguage", QT_TRANSLATE_NOOP("Texts", "Altra lingua"),
     QT_TRANSLATE_NOOP("Texts", "Mostra questa pagina nell'altra lingua"), u"language", u"Ctrl+L"},
}};

}  // namespace vorlina
