#include "products/ProductKeys.h"

#include "base/Texts.h"
#include "products/CardToolbar.h"
#include "products/GridCommands.h"
#include "products/ImagesToolbar.h"

namespace vorlina {
namespace {

constexpr KeyUse GridKeyUses[] = {
    {u"Up; Down; Left; Right", QT_TRANSLATE_NOOP("Texts", "Vai alla cella accanto")},
    {u"Tab; Shift+Tab",
     QT_TRANSLATE_NOOP("Texts", "Vai alla cella seguente o precedente che si può scrivere")},
    {u"Home; End", QT_TRANSLATE_NOOP("Texts", "Vai alla prima o all'ultima cella della riga")},
    {u"PgUp; PgDown", QT_TRANSLATE_NOOP("Texts", "Scorri di una pagina")},
    {u"Ctrl+Home; Ctrl+End", QT_TRANSLATE_NOOP("Texts", "Vai alla prima o all'ultima riga")},
    {u"Shift+Up; Shift+Down", QT_TRANSLATE_NOOP("Texts", "Seleziona più righe")},
    {u"Ctrl+A", QT_TRANSLATE_NOOP("Texts", "Seleziona tutte le righe")},
    {u"F2", QT_TRANSLATE_NOOP("Texts", "Modifica la cella; anche scrivendo, al posto di ciò che contiene")},
    {u"Return", QT_TRANSLATE_NOOP("Texts", "Mentre si modifica: conferma la cella e scendi")},
    {u"Return", QT_TRANSLATE_NOOP("Texts", "Altrimenti: apri la scheda del prodotto")},
    {u"Esc", QT_TRANSLATE_NOOP("Texts", "Annulla le modifiche della cella, poi quelle della riga")},
    {u"Space", QT_TRANSLATE_NOOP("Texts", "Metti o togli il segno di spunta")},
    {u"F4; Alt+Down; Alt+Up", QT_TRANSLATE_NOOP("Texts", "Apri l'elenco della cella")},
    {u"Ctrl+C", QT_TRANSLATE_NOOP("Texts", "Copia le righe selezionate")},
    {u"Ctrl+V", QT_TRANSLATE_NOOP("Texts", "Incolla un testo nella cella")},
    {u"Del", QT_TRANSLATE_NOOP("Texts", "Elimina le righe selezionate")},
    {u"Menu; Shift+F10", QT_TRANSLATE_NOOP("Texts", "Apri il menu delle righe")},
    {u"Ctrl+Menu; Ctrl+Shift+F10", QT_TRANSLATE_NOOP("Texts", "Apri il menu della colonna")},
};

constexpr KeyUse ImportKeyUses[] = {
    {u"Esc", QT_TRANSLATE_NOOP("Texts", "Interrompi l'importazione in corso")},
};

constexpr KeyUse FindKeyUses[] = {
    {u"Return; Shift+Return",
     QT_TRANSLATE_NOOP("Texts", "Nella riga di ricerca: trova il successivo o il precedente")},
    {u"Esc",
     QT_TRANSLATE_NOOP("Texts", "Interrompi la ricerca in corso, altrimenti chiudi la riga di ricerca")},
};

constexpr KeyUse PropertyKeyUses[] = {
    {u"Ctrl+Tab; Ctrl+Shift+Tab",
     QT_TRANSLATE_NOOP("Texts", "Vai alla scheda seguente o precedente della finestra")},
    {u"Return; Enter", QT_TRANSLATE_NOOP("Texts", "Sul logo: mostra l'immagine")},
    {u"Del; Backspace", QT_TRANSLATE_NOOP("Texts", "Sul logo: togli il logo")},
    {u"Esc", QT_TRANSLATE_NOOP("Texts", "Chiudi la finestra")},
};

constexpr KeyUse CardKeyUses[] = {
    {u"F4; Up; Down", QT_TRANSLATE_NOOP("Texts", "Apri l'elenco dei valori di un filtro")},
    {u"Return", QT_TRANSLATE_NOOP("Texts", "Durante una ricerca: trova")},
    {u"Esc", QT_TRANSLATE_NOOP("Texts", "Chiudi la finestra")},
};

constexpr KeyUse ImageKeyUses[] = {
    {u"F2", QT_TRANSLATE_NOOP("Texts", "Modifica la descrizione dell'immagine")},
    {u"Del", QT_TRANSLATE_NOOP("Texts", "Elimina l'immagine selezionata")},
    {u"Esc", QT_TRANSLATE_NOOP("Texts", "Chiudi la finestra")},
};

constexpr KeyUse SheetKeyUses[] = {
    {u"Return", QT_TRANSLATE_NOOP("Texts", "Apri la caratteristica in una finestra più grande")},
    {u"Esc",
     QT_TRANSLATE_NOOP("Texts", "Annulla le modifiche della cella e della riga, poi chiudi la finestra")},
};

constexpr KeyUse ValueKeyUses[] = {
    {u"F2", QT_TRANSLATE_NOOP("Texts", "Modifica la cella; anche scrivendo, al posto di ciò che contiene")},
    {u"Del", QT_TRANSLATE_NOOP("Texts", "Elimina le righe selezionate")},
    {u"Esc",
     QT_TRANSLATE_NOOP("Texts", "Annulla le modifiche della cella e della riga, poi chiudi la finestra")},
};

constexpr KeyUse PagerKeyUses[] = {
    {u"Up; Down; Left; Right", QT_TRANSLATE_NOOP("Texts", "Scegli un'immagine")},
    {u"Return", QT_TRANSLATE_NOOP("Texts", "Apri la scheda del prodotto scelto")},
    {u"PgUp; PgDown", QT_TRANSLATE_NOOP("Texts", "Vai alla pagina precedente o seguente")},
    {u"Home; End", QT_TRANSLATE_NOOP("Texts", "Vai alla prima o all'ultima pagina")},
    {u"Esc", QT_TRANSLATE_NOOP("Texts", "Chiudi la finestra")},
};

KeyGroup GridWindowKeys() {
  KeyGroup group{Texts::tr("Finestra dei prodotti"), {}};
  group.Add(GridToolbar);
  group.Add(GridHelpMenu);
  group.Add(GridMenu);
  group.Add(ImportKeyUses);
  return group;
}

KeyGroup ColumnKeys() {
  KeyGroup group{Texts::tr("Colonne"), {}};
  group.Add(ColumnMenu);
  return group;
}

KeyGroup FindKeys() {
  KeyGroup group{Texts::tr("Trova nelle righe"), {}};
  group.Add(GridFindMenu);
  group.Add(FindKeyUses);
  return group;
}

KeyGroup CardKeys() {
  KeyGroup group{Texts::tr("Scheda del prodotto"), {}};
  group.Add(CardToolbar);
  group.Add(CardWays);
  group.Add(CardKeyUses);
  return group;
}

KeyGroup Uses(const QString& title, std::span<const KeyUse> uses) {
  KeyGroup group{title, {}};
  group.Add(uses);
  return group;
}

}  // namespace

std::vector<KeyGroup> ProductKeys() {
  KeyGroup images{Texts::tr("Immagini di un prodotto"), {}};
  images.Add(ImagesToolbar);
  images.Add(ImageKeyUses);
  return {GridWindowKeys(),
          Uses(Texts::tr("Righe e celle"), GridKeyUses),
          ColumnKeys(),
          FindKeys(),
          CardKeys(),
          images,
          Uses(Texts::tr("Scheda tecnica"), SheetKeyUses),
          Uses(Texts::tr("Dati del filtro"), ValueKeyUses),
          Uses(Texts::tr("Immagini del catalogo"), PagerKeyUses),
          Uses(Texts::tr("Proprietà del catalogo"), PropertyKeyUses)};
}

}  // namespace vorlina
