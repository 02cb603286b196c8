// The commands of the list of a product's pictures as data.
#pragma once

#include <QCoreApplication>
#include <array>

#include "base/Commands.h"

namespace vorlina {

inline constexpr std::array<ToolbarCommand, 4> ImagesToolbar{{
    {u"cmdAdd", QT_TRANSLATE_NOOP("Texts", " Aggiungi"), QT_TRANSLATE_NOOP("Texts", "Aggiungi un' immagine"),
     u"add", u"Ctrl+N"},
    {u"cmdDelete", QT_TRANSLATE_NOOP("Texts", "  Elimina"),
     QT_TRANSLATE_NOOP("Texts", "Elimina l'immagine selezionata"), u"delete", u""},
    {u"cmdChange", QT_TRANSLATE_NOOP("Texts", " Cambia"),
     QT_TRANSLATE_NOOP("Texts", "Cambia l'immagine selezionata"), u"change", u"Ctrl+M"},
    {u"cmdClear", QT_TRANSLATE_NOOP("Texts", "  Svuota"),
     QT_TRANSLATE_NOOP("Texts", "Svuota l'elenco delle immagini"), u"clear", u""},
}};

}  // namespace vorlina
