#include "base/Messages.h"

namespace vorlina {
namespace {

const char16_t* const ItalianErrors[] = {
    u"Inserire almeno un nome di catalogo",
    u"Inserire almeno un criterio di filtraggio",
    u"Selezionare un immagine valida",
    u"Non è possibile inserire filtri con nome uguale",
    u"Non è possibile inserire campi valore con nome uguale",
};

const char16_t* const EnglishErrors[] = {
    u"Catalog name required",
    u"Insert at least a filter name",
    u"Select a valid image",
    u"You can't insert filters with the same name",
    u"You can't insert value fields with the same name",
};

const char16_t* const ItalianConfirmations[] = {
    u"Procedere all'eliminazione del catalogo e di tutte le immagini ad esso associate ?",
    u"Inserire il nuovo valore in tabella ?",
    u"Aggiungere una scheda tecnica per il prodotto?",
    u"Procedere all'eliminazione dei prodotti selezionati?",
    u"Salvare le modifiche effettuate ?",
    u"Procedere all'eliminazione del filtro:",
    u"e di tutti i valori ad esso relativi",
    u"Impossibile eliminare il filtro. Utilizzare la maschera proprietà del catalogo.",
    (u"Impossibile creare il catalogo. Non è possibile inserire campi valori con gli stessi nomi di campi "
     u"filtro."),
    u"Eliminando l'immagine principale saranno eliminate anche tutte le altre. Procedere?",
    u"Eliminare l'immagine selezionata?",
    u"Procedendo verranno eliminate tutte le immagini supplementari. Procedere?",
};

const char16_t* const EnglishConfirmations[] = {
    u"Do you want to delete selected catalog and its images?",
    u"Do you want to insert a new item in the table?",
    u"Do you want to add tech data for the selected product?",
    u"Do you want to delete the selected product?",
    u"Do you want to save?",
    u"Do you want to delete the selected filter",
    u"and all data belonging to it?",
    u"Can't delete the filter. Use catalog properties form.",
    u"Can't create catalog. You can't insert value fields with the same names as filter fields.",
    u"Deleting main image will delete all the others. Continue?",
    u"Delete selected image?",
    u"All the additional images will be deleted. Continue?",
};

const char16_t* const ItalianWizard[] = {
    u"Avanti >>",
    u"<< Indietro",
    u"Fine",
    u"Annulla",
    u"Aiuto ?",
    (u"Dati generali del catalogo: vengono qui inseriti i dati che caratterizzano il catalogo come ad "
     u"esempio "
     u"la denominazione dei campi di descrizione da mostrare insieme ai prodotti"),
    (u"Impostazione dei campi di filtraggio: è possibile impostare la denominazione dei campi caratteristici "
     u"che serviranno per eseguire operazioni di filtraggio sui dati da parte dell'utente del catalogo"),
    (u"Generazione catalogo completata: sarà ora possibile inserire i valori per i campi di filtraggio e i "
     u"dati dei prodotti da inserire nel catalogo"),
    (u"Informazioni Aziendali: inserire le informazioni aziendali in modo da dare agli utenti del catalogo "
     u"tutti i vostri recapiti"),
};

const char16_t* const EnglishWizard[] = {
    u"&Next >>",
    u"<< &Back",
    u"&Finish",
    u"&Cancel",
    u"Help &?",
    u"Insert here general data for the catalog like title, description and products fields name",
    u"Insert here up to five fields name to be used as search filter by the user",
    u"Insert here the company information to be used by the user to contact you",
    (u"Catalog generation completed: now you can insert new values for filtering fileds  and products "
     u"data"),
};

struct Range {
  int base;
  const char16_t* const* texts;
  int count;
};

const Range Ranges[] = {
    {101, ItalianWizard, std::size(ItalianWizard)},
    {200, ItalianErrors, std::size(ItalianErrors)},
    {300, ItalianConfirmations, std::size(ItalianConfirmations)},
    {401, EnglishWizard, std::size(EnglishWizard)},
    {500, EnglishErrors, std::size(EnglishErrors)},
    {600, EnglishConfirmations, std::size(EnglishConfirmations)},
};

}  // namespace

QString NumberedText(int number) {
  for (const Range& range : Ranges)
    if (number >= range.base && number < range.base + range.count)
      return QString::fromUtf16(range.texts[number - range.base]);
  return {};
}

}  // namespace vorlina
