// The commands of the main window as data: keys, captions and tool tips, pictures and shortcuts.
#pragma once

#include <QCoreApplication>
#include <array>

#include "base/Commands.h"

namespace vorlina {

// The toolbar's buttons in order; the first has index 1.
inline constexpr std::array<ToolbarCommand, 7> ToolbarCommands{{
    {u"cmdNew", QT_TRANSLATE_NOOP("Texts", " Nuovo"), QT_TRANSLATE_NOOP("Texts", "Crea un nuovo catalogo"),
     u"new", u"Ctrl+N"},
    {u"cmdEdit", QT_TRANSLATE_NOOP("Texts", "  Modifica"),
     QT_TRANSLATE_NOOP("Texts", "Modifica il catalogo selezionato"), u"edit", u"Ctrl+M"},
    {u"cmdDelete", QT_TRANSLATE_NOOP("Texts", "  Elimina "),
     QT_TRANSLATE_NOOP("Texts", "Elimina il catalogo selezionato"), u"delete", u""},
    {u"cmdDuplica", QT_TRANSLATE_NOOP("Texts", "Duplica"),
     QT_TRANSLATE_NOOP("Texts", "Duplica il catalogo selezionato"), u"clone", u"Ctrl+D"},
    {u"cmdPublish", QT_TRANSLATE_NOOP("Texts", "Pubblica"),
     QT_TRANSLATE_NOOP("Texts", "Pubblica il catalogo selezionato"), u"publish", u"Ctrl+P"},
    {u"cmdPlugins", QT_TRANSLATE_NOOP("Texts", "   Plug-Ins"),
     QT_TRANSLATE_NOOP("Texts", "Installa nuovi plug-ins"), u"plugins", u""},
    {u"cmdHelp", QT_TRANSLATE_NOOP("Texts", "   Aiuto"), QT_TRANSLATE_NOOP("Texts", "Aiuto"), u"help", u""},
}};

// The buttons that are of no use while the publishing pane shows, by index.
inline constexpr std::array<int, 5> CatalogPaneButtons{1, 2, 3, 4, 7};

// The drop-down entries of the help button.
inline constexpr std::array<MenuCommand, 9> HelpCommands{{
    {u"subHelp", QT_TRANSLATE_NOOP("Texts", "Aiuto")},
    {u"mnuTasti", QT_TRANSLATE_NOOP("Texts", "Tasti e scorciatoie"), u"Ctrl+F1"},
    {u"subSupport", QT_TRANSLATE_NOOP("Texts", "Supporto")},
    {u"cmdAggiornamenti", QT_TRANSLATE_NOOP("Texts", "Aggiornamenti")},
    {u"cmdTour", QT_TRANSLATE_NOOP("Texts", "Tour")},
    {u"cmdOpzioni", QT_TRANSLATE_NOOP("Texts", "Opzioni")},
    {u"mnuBackup", QT_TRANSLATE_NOOP("Texts", "Copia di sicurezza...")},
    {u"mnuRestore", QT_TRANSLATE_NOOP("Texts", "Ripristina...")},
    {u"subAbout", QT_TRANSLATE_NOOP("Texts", "Informazioni su...")},
}};

// The context menu of the list of catalogs: what each entry does, "" for typing over the name. Their keys are
// shown, and the list's own.
struct CatalogEntry {
  MenuCommand entry;
  const char16_t* command;
};
inline constexpr std::array<CatalogEntry, 5> CatalogEntries{{
    {{u"mnuApri", QT_TRANSLATE_NOOP("Texts", "Modifica"), u"Return"}, u"cmdEdit"},
    {{u"mnuRinomina", QT_TRANSLATE_NOOP("Texts", "Rinomina"), u"F2"}, u""},
    {{u"mnuDuplica", QT_TRANSLATE_NOOP("Texts", "Duplica"), u"Ctrl+D"}, u"cmdDuplica"},
    {{u"mnuElimina", QT_TRANSLATE_NOOP("Texts", "Elimina"), u"Del"}, u"cmdDelete"},
    {{u"mnuPubblica", QT_TRANSLATE_NOOP("Texts", "Pubblica"), u"Ctrl+P"}, u"cmdPublish"},
}};

// The keys in the list of catalogs, and in that of the plug-ins.
inline constexpr std::array<KeyUse, 5> CatalogListKeys{{
    {u"F1", QT_TRANSLATE_NOOP("Texts", "Aiuto sulla finestra in uso")},
    {u"Return",
     QT_TRANSLATE_NOOP("Texts", "Apri il catalogo selezionato, o pubblica con il plug-in selezionato")},
    {u"F2", QT_TRANSLATE_NOOP("Texts", "Cambia il nome del catalogo selezionato")},
    {u"Del", QT_TRANSLATE_NOOP("Texts", "Elimina il catalogo selezionato")},
    {u"Menu; Shift+F10", QT_TRANSLATE_NOOP("Texts", "Apri il menu dei cataloghi")},
}};

}  // namespace vorlina
