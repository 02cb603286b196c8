// The commands of the product grid's window as data.
#pragma once

#include <array>

#include "base/Commands.h"

namespace vorlina {

// The toolbar's buttons in order.
inline constexpr std::array<ToolbarCommand, 9> GridToolbar{{
    {u"cmdNew", {u"Nuovo", u"New"}, {u"Inserisci un nuovo prodotto", u"Insert new item"}, u"new", u"Ctrl+N"},
    {u"cmdEdit",
     {u"  Modifica", u"  Edit"},
     {u"Modifica il prodotto selezionato", u"Edit selected item"},
     u"edit",
     u"Ctrl+M"},
    {u"cmdDelete",
     {u"  Elimina", u"  Delete"},
     {u"Elimina il prodotto selezionato", u"Delete selected item"},
     u"delete",
     u""},
    {u"cmdSearch",
     {u"Cerca", u"Search"},
     {u"Cerca un prodotto", u"Search for an item"},
     u"search",
     u"Ctrl+F"},
    {u"cmdImmagini", {u"Immagini", u"Images"}, {u"", u""}, u"images", u"Ctrl+I"},
    {u"cmdProperties",
     {u"Proprietà", u"Properties"},
     {u"Imposta le proprietà del catalogo", u"Edit catalog properties"},
     u"properties",
     u""},
    {u"cmdPublish",
     {u"Pubblica", u"Publish"},
     {u"Pubblica il catalogo", u"Publish catalog"},
     u"publish",
     u""},
    {u"cmdImporta",
     {u"Importa", u"Import..."},
     {u"Importazione da una cartella di immagini", u"Import from image folder"},
     u"import",
     u""},
    {u"cmdHelp", {u"    Aiuto", u"    Help"}, {u"Aiuto", u"Help"}, u"help", u"F1"},
}};

// The entries of the menu over the rows. Rows do not move by arrows: with Ctrl they select to the end, with
// Alt they open a list, and window managers take others.
inline constexpr std::array<MenuCommand, 6> GridMenu{{
    {u"mnuCopia", {u"Copia", u"Copy"}},
    {u"mnuOrdinePubbl", {u"Imposta ordine di pubblicazione", u"Change publishing order"}},
    {u"mnuResizeCol", {u"Ripristina larghezza colonne", u"Restore columns width"}},
    {u"mnuSpostaSu", {u"Sposta righe in su", u"Move rows up"}, u"Ctrl+Shift+PgUp"},
    {u"mnuSpostaGiu", {u"Sposta righe in giù", u"Move rows down"}, u"Ctrl+Shift+PgDown"},
    {u"mnuAggiorna", {u"Aggiorna", u"Refresh"}, u"F5"},
}};

// The entries of the menu over a column's head beside those that say how its texts stand.
inline constexpr std::array<MenuCommand, 3> ColumnMenu{{
    {u"mnuOrdina", {u"Ordina", u"Sort"}, u"Ctrl+Shift+O"},
    {u"mnuSpostaSinistra", {u"Sposta a sinistra", u"Move left"}, u"Ctrl+Shift+Left"},
    {u"mnuSpostaDestra", {u"Sposta a destra", u"Move right"}, u"Ctrl+Shift+Right"},
}};

// The entries of the menu over a column's head that say how its texts stand, in the order of GridAlignment.
inline constexpr std::array<Caption, 3> AlignmentMenu{
    {{u"Sinistra", u"Left"}, {u"Centrato", u"Center"}, {u"Destra", u"Right"}}};

}  // namespace vorlina
