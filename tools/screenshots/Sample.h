// What the pictures show: the sample catalog in the program's language, and what a user would type there.
#pragma once

#include <QString>

#include "support/Language.h"

namespace vorlina {

struct Sample {
  int catalog;
  int row;          // of the catalog in the list
  QString product;  // with a sheet and further pictures
  QString filter;   // the first one's name
  QString code;     // what codes are sought by
  QString text;     // what is sought in the rows
  QString picture;
  QString leftOut[2];  // files that an import leaves out
  QString value;       // that the second filter does not have yet
  QString logo;        // where a user has it
  QString folder;      // the same of a site
  QString address;     // of the site
  QString hours;
  QString texts[13];  // of a new catalog, as the wizard asks for them
};

inline Sample TheSample() {
  if (Language == u"Italian")
    return {109,
            0,
            u"CT-301"_qs,
            u"Linea"_qs,
            u"TZ"_qs,
            u"ot"_qs,
            u"tazza 201.jpg"_qs,
            {u"copertina.jpeg"_qs, u"listino.xlsx"_qs},
            u"Ocra"_qs,
            u"/home/anna/Immagini/logo.jpg"_qs,
            u"/home/anna/Documenti/Sito 2026"_qs,
            u"https://www.lunari.example/catalogo/"_qs,
            u"Dal lunedì al venerdì, 9-12 e 15-19\nSabato, 9-12"_qs,
            {u"Ceramiche 2026"_qs, u"Piatti, tazze e vasi"_qs, u"Prezzo €"_qs, u"Peso (kg)"_qs, u"Colore"_qs,
             u"Materiale"_qs, u"Manifatture Lunari"_qs, u"Via dei Tornitori 12"_qs, u"Faenza"_qs, u"RA"_qs,
             u"48018"_qs, u"Italia"_qs, u"info@lunari.example"_qs}};
  return {110,
          1,
          u"CS-31"_qs,
          u"Range"_qs,
          u"CH"_qs,
          u"bo"_qs,
          u"candlestick 31.jpg"_qs,
          {u"cover.jpeg"_qs, u"price list.xlsx"_qs},
          u"Teak"_qs,
          u"/home/anna/Pictures/logo.jpg"_qs,
          u"/home/anna/Documents/Site 2026"_qs,
          u"https://www.moonrise.example/catalog/"_qs,
          u"Monday to Friday, 9 to 5\nSaturday, 9 to 12"_qs,
          {u"Pottery 2026"_qs, u"Plates, mugs and vases"_qs, u"Price £"_qs, u"Weight (kg)"_qs, u"Colour"_qs,
           u"Material"_qs, u"Moonrise Potters"_qs, u"12 Kiln Lane"_qs, u"Little Wendle"_qs, u"Wendleshire"_qs,
           u"WN0 0AB"_qs, u"United Kingdom"_qs, u"orders@moonrise.example"_qs}};
}

}  // namespace vorlina
