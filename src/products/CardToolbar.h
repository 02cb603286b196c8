// The commands of the product card as data.
#pragma once

#include <QCoreApplication>
#include <array>

#include "base/Commands.h"

namespace vorlina {

// The grid's window has the same text, which other languages tell apart.
inline constexpr const char* NewProductTip[] =
    QT_TRANSLATE_NOOP3("Texts", "Inserisci un nuovo prodotto", "product card");

inline constexpr std::array<ToolbarCommand, 6> CardToolbar{{
    {u"cmdNew", QT_TRANSLATE_NOOP("Texts", "Nuovo"), NewProductTip[0], u"new", u"Ctrl+N", NewProductTip[1]},
    {u"cmdSave", QT_TRANSLATE_NOOP("Texts", "Salva"), QT_TRANSLATE_NOOP("Texts", "Salva le modifiche"),
     u"save", u"Ctrl+S"},
    {u"cmdDelete", QT_TRANSLATE_NOOP("Texts", "Elimina"), QT_TRANSLATE_NOOP("Texts", "Elimina il prodotto"),
     u"delete", u""},
    {u"cmdImage", QT_TRANSLATE_NOOP("Texts", "Immagine"),
     QT_TRANSLATE_NOOP("Texts", "Visualizza/imposta l'immagine per il prodotto"), u"picture", u"Ctrl+I"},
    {u"cmdTechData", QT_TRANSLATE_NOOP("Texts", "Scheda"),
     QT_TRANSLATE_NOOP("Texts", "Inserisci/modifica la scheda tecnica del prodotto"), u"sheet", u"Ctrl+T"},
    {u"cmdFind", QT_TRANSLATE_NOOP("Texts", "Trova"),
     QT_TRANSLATE_NOOP("Texts", "Trova il prodotto che soddisfa i criteri specificati"), u"search",
     u"Ctrl+F"},
}};

// At the other end of the toolbar.
inline constexpr std::array<ToolbarCommand, 2> CardWays{{
    {u"cmdPrevious", QT_TRANSLATE_NOOP("Texts", "Precedente"),
     QT_TRANSLATE_NOOP("Texts", "Prodotto precedente dell'elenco"), u"previous", u"Ctrl+PgUp"},
    {u"cmdNext", QT_TRANSLATE_NOOP("Texts", "Successivo"),
     QT_TRANSLATE_NOOP("Texts", "Prodotto successivo dell'elenco"), u"next", u"Ctrl+PgDown"},
}};

// The entries below cmdImage.
inline constexpr std::array<MenuCommand, 2> ImageMenu{{
    {u"cmdImageView", QT_TRANSLATE_NOOP("Texts", "Visualizza")},
    {u"cmdImageChange", QT_TRANSLATE_NOOP("Texts", "Cambia")},
}};

}  // namespace vorlina
