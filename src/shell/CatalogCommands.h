// The commands of the main window as data: keys, captions and tool tips in both languages, pictures and
// shortcuts.
#pragma once

#include <array>

#include "base/Commands.h"

namespace vorlina {

// The toolbar's buttons in order; the first has index 1.
inline constexpr std::array<ToolbarCommand, 7> ToolbarCommands{{
    {u"cmdNew", {u" Nuovo", u" New"}, {u"Crea un nuovo catalogo", u"Create new catalog"}, u"new", u"Ctrl+N"},
    {u"cmdEdit",
     {u"  Modifica", u"  Edit"},
     {u"Modifica il catalogo selezionato", u"Edit selected catalog"},
     u"edit",
     u"Ctrl+M"},
    {u"cmdDelete",
     {u"  Elimina ", u"  Delete "},
     {u"Elimina il catalogo selezionato", u"Delete selected catalog"},
     u"delete",
     u""},
    {u"cmdDuplica",
     {u"Duplica", u"Clone"},
     {u"Duplica il catalogo selezionato", u"Clone selected catalog"},
     u"clone",
     u"Ctrl+D"},
    {u"cmdPublish",
     {u"Pubblica", u"Publish"},
     {u"Pubblica il catalogo selezionato", u"Publish selected catalog"},
     u"publish",
     u"Ctrl+P"},
    {u"cmdPlugins",
     {u"   Plug-Ins", u"   Plug-Ins"},
     {u"Installa nuovi plug-ins", u"Install new plug-ins"},
     u"plugins",
     u""},
    {u"cmdHelp", {u"   Aiuto", u"   Help"}, {u"Aiuto", u"Help"}, u"help", u"F1"},
}};

// The buttons that are of no use while the publishing pane shows, by index.
inline constexpr std::array<int, 5> CatalogPaneButtons{1, 2, 3, 4, 7};

// The drop-down entries of the help button.
inline constexpr std::array<MenuCommand, 6> HelpCommands{{
    {u"subHelp", {u"Aiuto", u"Help"}},
    {u"subSupport", {u"Supporto", u"Support"}},
    {u"cmdAggiornamenti", {u"Aggiornamenti", u"Updates"}},
    {u"cmdTour", {u"Tour", u"Tour"}},
    {u"cmdOpzioni", {u"Opzioni", u"Settings"}},
    {u"subAbout", {u"Informazioni su...", u"About Vorlina..."}},
}};

}  // namespace vorlina
