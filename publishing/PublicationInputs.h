// What a publication is made from, and whether it is as it was, told without reading it.
#pragma once

#include <VorlinaJob.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace publishing {

// All that a publication is made from, but for the job, the database and the library that publishes.
struct PublicationInputs {
  QStringList files;    // full paths
  QStringList folders;  // likewise, with what lies in them; folders in them are told on their own
  // Whatever else, such as the language of its texts.
  QByteArray others;
};

// Empty where something was written so lately that it can be written again without a sign.
QByteArray DigestOf(const PublicationInputs& inputs, const QString& database, const VorlinaJob& job);

}  // namespace publishing
