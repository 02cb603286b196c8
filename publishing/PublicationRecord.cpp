#include "PublicationRecord.h"

#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QIODevice>
#include <algorithm>
#include <unordered_set>

#include "Fingerprint.h"
#include "Manifest.h"

namespace publishing {
namespace {

constexpr quint32 Format = 1;

std::uint64_t FingerprintOfBytes(const QByteArray& bytes) {
  return Fingerprint({bytes.constData(), std::size_t(bytes.size())});
}

std::uint64_t HashOf(const QString& file) { return Fingerprint(file.toStdString()); }

StateSum ProvenOf(const std::vector<FileState>& files, FileTime looked) {
  StateSum sum;
  for (const FileState& file : files)
    if (file.time < LastProven(looked)) sum.Add(file);
  return sum;
}

// The notes of many products are the same texts.
QDataStream& operator<<(QDataStream& stream, const VorlinaReport& report) {
  QHash<QString, qint32> numbers;
  QStringList texts;
  QByteArray notes;
  QDataStream list(&notes, QIODevice::WriteOnly);
  for (const VorlinaNote& note : report.notes) {
    if (!numbers.contains(note.text)) {
      numbers.insert(note.text, qint32(texts.size()));
      texts += note.text;
    }
    list << qint32(note.kind) << numbers.value(note.text) << note.product.toUtf8();
  }
  return stream << report.pages << report.pictures << report.bytes << report.open << texts
                << qint32(report.notes.size()) << notes;
}

QDataStream& operator>>(QDataStream& stream, VorlinaReport& report) {
  QStringList texts;
  qint32 count = 0;
  QByteArray notes;
  stream >> report.pages >> report.pictures >> report.bytes >> report.open >> texts >> count >> notes;
  QDataStream list(notes);
  report.notes.reserve(count);
  for (qint32 i = 0; i < count && list.status() == QDataStream::Ok; ++i) {
    qint32 kind = 0, text = 0;
    QByteArray product;
    list >> kind >> text >> product;
    report.notes.push_back({VorlinaNote::Kind(kind), QString::fromUtf8(product), texts.value(text)});
  }
  return stream;
}

}  // namespace

std::optional<PublicationRecord> PublicationRecord::Read(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  const QByteArray all = file.readAll();
  QDataStream head(all);
  quint32 format = 0;
  quint64 digest = 0;
  QByteArray content;
  head >> format >> digest >> content;
  if (head.status() != QDataStream::Ok || format != Format || digest != FingerprintOfBytes(content))
    return {};
  PublicationRecord record;
  QDataStream stream(content);
  qint64 looked = 0;
  quint64 list = 0, count = 0, sum = 0, young = 0;
  stream >> record.start >> looked >> record.folders >> list >> count >> sum >> young >> record.inputs >>
      record.report;
  record.looked = looked;
  record.report.complete = true;
  record.list = list;
  record.proven = {count, sum};
  record.young = young;
  if (stream.status() != QDataStream::Ok) return {};
  return record;
}

// It is not brought to the disk: one that a power failure damages tells so.
void PublicationRecord::Write(const QString& path) const {
  QByteArray content, all;
  QDataStream stream(&content, QIODevice::WriteOnly);
  stream << start << qint64(looked) << folders << quint64(list) << quint64(proven.count)
         << quint64(proven.sum) << quint64(young) << inputs << report;
  QDataStream head(&all, QIODevice::WriteOnly);
  head << Format << quint64(FingerprintOfBytes(content)) << content;
  QDir().mkpath(QFileInfo(path).path());
  QFile file(path);
  if (file.open(QIODevice::WriteOnly)) file.write(all);
}

TargetState::TargetState(const QString& target, const QStringList& folders) : looked_(Now()) {
  const std::string list = Manifest::FileName().toStdString();
  known_ = StatesIn(target, folders, [&](const FileState& file, std::string_view path) {
    if (path == list)
      list_ = file.state;
    else
      files_.push_back(file);
  });
}

TargetState::Proven TargetState::ProvenBy(const PublicationRecord& record) const {
  Proven proven;
  if (!known_ || list_ == 0 || list_ != record.list || record.start.isEmpty() ||
      record.start != StartOfComputer() || !(ProvenOf(files_, record.looked) == record.proven))
    return proven;
  for (const FileState& file : files_)
    if (file.time < LastProven(record.looked)) proven.names_.push_back(file.name);
  std::sort(proven.names_.begin(), proven.names_.end());
  proven.isAll_ = record.young == 0 && proven.names_.size() == files_.size();
  return proven;
}

bool TargetState::Proven::Has(const QString& file) const {
  return std::binary_search(names_.begin(), names_.end(), HashOf(file));
}

void TargetState::Enter(PublicationRecord& record, const QString& target, const QStringList& changed) const {
  std::unordered_set<std::uint64_t> left;
  for (const QString& file : changed) left.insert(HashOf(file));
  std::vector<FileState> others;
  std::copy_if(files_.begin(), files_.end(), std::back_inserter(others),
               [&](const FileState& file) { return !left.contains(file.name); });
  record.looked = looked_;
  record.proven = ProvenOf(others, looked_);
  record.young = others.size() - record.proven.count + left.size();
  FileState list;
  if (StateOf(target, Manifest::FileName(), list)) record.list = list.state;
}

}  // namespace publishing
