// The commands of the product grid's window as data.
#pragma once

#include <QCoreApplication>
#include <array>

#include "base/Commands.h"

namespace vorlina {

// The toolbar's buttons in order.
inline constexpr std::array<ToolbarCommand, 9> GridToolbar{{
    {u"cmdNew", QT_TRANSLATE_NOOP("Texts", "Nuovo"),
     QT_TRANSLATE_NOOP("Texts", "Inserisci un nuovo prodotto"), u"new", u"Ctrl+N"},
    {u"cmdEdit", QT_TRANSLATE_NOOP("Texts", "  Modifica"),
     QT_TRANSLATE_NOOP("Texts", "Modifica il prodotto selezionato"), u"edit", u"Ctrl+M"},
    {u"cmdDelete", QT_TRANSLATE_NOOP("Texts", "  Elimina"),
     QT_TRANSLATE_NOOP("Texts", "Elimina il prodotto selezionato"), u"delete", u""},
    {u"cmdSearch", QT_TRANSLATE_NOOP("Texts", "Cerca"), QT_TRANSLATE_NOOP("Texts", "Cerca un prodotto"),
     u"search", u"Ctrl+Shift+F"},
    {u"cmdImmagini", QT_TRANSLATE_NOOP("Texts", "Immagini"), "", u"images", u"Ctrl+Shift+I"},
    {u"cmdProperties", QT_TRANSLATE_NOOP("Texts", "Proprietà"),
     QT_TRANSLATE_NOOP("Texts", "Imposta le proprietà del catalogo"), u"properties", u"Alt+Return"},
    {u"cmdPublish", QT_TRANSLATE_NOOP("Texts", "Pubblica"),
     QT_TRANSLATE_NOOP("Texts", "Pubblica il catalogo"), u"publish", u"Ctrl+P"},
    {u"cmdImporta", QT_TRANSLATE_NOOP("Texts", "Importa"),
     QT_TRANSLATE_NOOP("Texts", "Importazione da una cartella di immagini"), u"import", u"Ctrl+I"},
    {u"cmdHelp", QT_TRANSLATE_NOOP("Texts", "    Aiuto"), QT_TRANSLATE_NOOP("Texts", "Aiuto"), u"help", u""},
}};

// The entries below cmdHelp.
inline constexpr std::array<MenuCommand, 2> GridHelpMenu{{
    {u"subHelp", QT_TRANSLATE_NOOP("Texts", "Aiuto")},
    {u"mnuTasti", QT_TRANSLATE_NOOP("Texts", "Tasti e scorciatoie"), u"Ctrl+F1"},
}};

// Finding in the rows that are shown.
inline constexpr std::array<MenuCommand, 3> GridFindMenu{{
    {u"mnuTrova", QT_TRANSLATE_NOOP("Texts", "Trova nelle righe"), u"Ctrl+F"},
    {u"mnuTrovaSuccessivo", QT_TRANSLATE_NOOP("Texts", "Trova il successivo"), u"F3"},
    {u"mnuTrovaPrecedente", QT_TRANSLATE_NOOP("Texts", "Trova il precedente"), u"Shift+F3"},
}};

// The entries of the menu over the rows. Rows do not move by arrows: with Ctrl they select to the end, with
// Alt they open a list, and window managers take others.
inline constexpr std::array<MenuCommand, 6> GridMenu{{
    {u"mnuCopia", QT_TRANSLATE_NOOP("Texts", "Copia")},
    {u"mnuOrdinePubbl", QT_TRANSLATE_NOOP("Texts", "Imposta ordine di pubblicazione")},
    {u"mnuResizeCol", QT_TRANSLATE_NOOP("Texts", "Ripristina larghezza colonne")},
    {u"mnuSpostaSu", QT_TRANSLATE_NOOP("Texts", "Sposta righe in su"), u"Ctrl+Shift+PgUp"},
    {u"mnuSpostaGiu", QT_TRANSLATE_NOOP("Texts", "Sposta righe in giù"), u"Ctrl+Shift+PgDown"},
    {u"mnuAggiorna", QT_TRANSLATE_NOOP("Texts", "Aggiorna"), u"F5"},
}};

// The entries of the menu over a column's head beside those that say how its texts stand.
inline constexpr std::array<MenuCommand, 3> ColumnMenu{{
    {u"mnuOrdina", QT_TRANSLATE_NOOP("Texts", "Ordina"), u"Ctrl+Shift+O"},
    {u"mnuSpostaSinistra", QT_TRANSLATE_NOOP("Texts", "Sposta a sinistra"), u"Ctrl+Shift+Left"},
    {u"mnuSpostaDestra", QT_TRANSLATE_NOOP("Texts", "Sposta a destra"), u"Ctrl+Shift+Right"},
}};

// The entries of the menu over a column's head that say how its texts stand, in the order of GridAlignment.
inline constexpr std::array<const char*, 3> AlignmentMenu{{QT_TRANSLATE_NOOP("Texts", "Sinistra"),
                                                           QT_TRANSLATE_NOOP("Texts", "Centrato"),
                                                           QT_TRANSLATE_NOOP("Texts", "Destra")}};

}  // namespace vorlina
