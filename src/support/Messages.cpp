#include "support/Messages.h"

#include <QCoreApplication>
#include <span>

namespace vorlina {
namespace {

// Long texts stand on several lines. NOLINTBEGIN(bugprone-suspicious-missing-comma)
const char* const Errors[] = {
    QT_TRANSLATE_NOOP("Texts", "Inserire almeno un nome di catalogo"),
    QT_TRANSLATE_NOOP("Texts", "Inserire almeno un criterio di filtraggio"),
    QT_TRANSLATE_NOOP("Texts", "Selezionare un immagine valida"),
    QT_TRANSLATE_NOOP("Texts", "Non è possibile inserire filtri con nome uguale"),
    QT_TRANSLATE_NOOP("Texts", "Non è possibile inserire campi valore con nome uguale"),
};

const char* const Confirmations[] = {
    QT_TRANSLATE_NOOP("Texts",
                      "Procedere all'eliminazione del catalogo e di tutte le immagini ad esso associate ?"),
    QT_TRANSLATE_NOOP("Texts", "Inserire il nuovo valore in tabella ?"),
    QT_TRANSLATE_NOOP("Texts", "Aggiungere una scheda tecnica per il prodotto?"),
    QT_TRANSLATE_NOOP("Texts", "Procedere all'eliminazione dei prodotti selezionati?"),
    QT_TRANSLATE_NOOP("Texts", "Salvare le modifiche effettuate ?"),
    QT_TRANSLATE_NOOP("Texts", "Procedere all'eliminazione del filtro:"),
    QT_TRANSLATE_NOOP("Texts", "e di tutti i valori ad esso relativi"),
    QT_TRANSLATE_NOOP("Texts",
                      "Impossibile eliminare il filtro. Utilizzare la maschera proprietà del catalogo."),
    QT_TRANSLATE_NOOP(
        "Texts",
        "Impossibile creare il catalogo. Non è possibile inserire campi valori con gli stessi nomi di campi "
        "filtro."),
    QT_TRANSLATE_NOOP("Texts",
                      "Eliminando l'immagine principale saranno eliminate anche tutte le altre. Procedere?"),
    QT_TRANSLATE_NOOP("Texts", "Eliminare l'immagine selezionata?"),
    QT_TRANSLATE_NOOP("Texts", "Procedendo verranno eliminate tutte le immagini supplementari. Procedere?"),
};

const char* const Wizard[] = {
    QT_TRANSLATE_NOOP("Wizard", "Avanti >>"),
    QT_TRANSLATE_NOOP("Wizard", "<< Indietro"),
    QT_TRANSLATE_NOOP("Wizard", "Fine"),
    QT_TRANSLATE_NOOP("Wizard", "Annulla"),
    QT_TRANSLATE_NOOP("Wizard", "Aiuto ?"),
    QT_TRANSLATE_NOOP(
        "Wizard",
        "Dati generali del catalogo: vengono qui inseriti i dati che caratterizzano il catalogo come ad "
        "esempio "
        "la denominazione dei campi di descrizione da mostrare insieme ai prodotti"),
    QT_TRANSLATE_NOOP(
        "Wizard",
        "Impostazione dei campi di filtraggio: è possibile impostare la denominazione dei campi "
        "caratteristici "
        "che serviranno per eseguire operazioni di filtraggio sui dati da parte dell'utente del catalogo"),
    QT_TRANSLATE_NOOP(
        "Wizard",
        "Generazione catalogo completata: sarà ora possibile inserire i valori per i campi di filtraggio e i "
        "dati dei prodotti da inserire nel catalogo"),
    QT_TRANSLATE_NOOP(
        "Wizard",
        "Informazioni Aziendali: inserire le informazioni aziendali in modo da dare agli utenti del catalogo "
        "tutti i vostri recapiti"),
};

// NOLINTEND(bugprone-suspicious-missing-comma)

// The wizard's steps are not in one order in both languages.
constexpr int EnglishWizardBase = 401;
constexpr int EnglishWizard[] = {0, 1, 2, 3, 4, 5, 6, 8, 7};

struct Range {
  int base;
  const char* context;
  std::span<const char* const> texts;
};

const Range Ranges[] = {{101, "Wizard", Wizard},       {200, "Texts", Errors},
                        {300, "Texts", Confirmations}, {EnglishWizardBase, "Wizard", Wizard},
                        {500, "Texts", Errors},        {600, "Texts", Confirmations}};

}  // namespace

QString NumberedText(int number) {
  for (const Range& range : Ranges) {
    int index = number - range.base;
    if (index < 0 || index >= int(range.texts.size())) continue;
    if (range.base == EnglishWizardBase) index = EnglishWizard[index];
    return QCoreApplication::translate(range.context, range.texts[std::size_t(index)]);
  }
  return {};
}

}  // namespace vorlina
