#include "Labels.h"

namespace vlhtml {
namespace {

struct Word {
  const char* key;
  const char* italian;
  const char* english;
};

const Word Words[] = {
    {"lang", "it", "en"},
    {"skip", "Vai al contenuto", "Skip to the content"},
    {"home", "Pagina iniziale", "Home"},
    {"main", "Principale", "Main"},
    {"products", "Prodotti", "Products"},
    {"allProducts", "Tutti i prodotti", "All products"},
    {"browse", "Sfoglia per", "Browse by"},
    {"featured", "In primo piano", "Highlights"},
    {"breadcrumb", "Percorso", "Breadcrumb"},
    {"pages", "Pagine", "Pages"},
    {"previous", "Precedente", "Previous"},
    {"next", "Successivo", "Next"},
    {"neighbours", "Altri prodotti", "More products"},
    {"code", "Codice", "Code"},
    {"details", "Caratteristiche", "Details"},
    {"techData", "Scheda tecnica", "Technical data"},
    {"feature", "Caratteristica", "Feature"},
    {"value", "Valore", "Value"},
    {"pictures", "Immagini", "Pictures"},
    {"noPicture", "Nessuna immagine", "No picture"},
    {"contact", "Contatti", "Contact"},
    {"telephone", "Tel.", "Phone"},
    {"fax", "Fax", "Fax"},
    {"email", "E-mail", "E-mail"},
    {"web", "Sito", "Web"},
    {"empty", "Nessun prodotto da mostrare.", "There are no products to show."},
};

}  // namespace

void TellLabels(Fields& fields, bool italian) {
  for (const Word& word : Words) fields.Text(word.key, italian ? word.italian : word.english);
}

std::string PageOf(bool italian, int page, int pages) {
  const std::string of = italian ? " di " : " of ";
  return (italian ? "Pagina " : "Page ") + std::to_string(page) + of + std::to_string(pages);
}

}  // namespace vlhtml
