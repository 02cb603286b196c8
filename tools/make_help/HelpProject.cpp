#include "HelpProject.h"

#include <QDir>
#include <QFile>
#include <QXmlStreamWriter>
#include <stdexcept>

namespace vorlina {
namespace {

QString PageFile(const QString& language, const HelpEntry& entry) {
  return language + u'/' + entry.name + u".html"_qs;
}

void Copy(const QString& from, const QString& to) {
  QDir().mkpath(QFileInfo(to).path());
  QFile::remove(to);
  if (!QFile::copy(from, to)) throw std::runtime_error("cannot copy " + from.toStdString());
}

// The contents, the words of the index with the numbers of topics and the windows as their further names, and
// the files.
class Project {
 public:
  Project(const HelpSource& source, const QString& language, QIODevice& device)
      : source_(source), language_(language), xml_(&device) {}

  void Write(const QStringList& files) {
    xml_.setAutoFormatting(true);
    xml_.writeStartDocument();
    xml_.writeStartElement(u"QtHelpProject"_qs);
    xml_.writeAttribute(u"version"_qs, u"1.0"_qs);
    xml_.writeTextElement(u"namespace"_qs, u"vorlina.help."_qs + language_);
    xml_.writeTextElement(u"virtualFolder"_qs, u"doc"_qs);
    xml_.writeStartElement(u"filterSection"_qs);
    WriteContents();
    WriteKeywords();
    xml_.writeStartElement(u"files"_qs);
    for (const QString& file : files) xml_.writeTextElement(u"file"_qs, file);
    xml_.writeEndDocument();
  }

 private:
  void Begin(const QString& title, const HelpEntry& entry) {
    xml_.writeStartElement(u"section"_qs);
    xml_.writeAttribute(u"title"_qs, title);
    xml_.writeAttribute(u"ref"_qs, PageFile(language_, entry));
  }

  void WriteContents() {
    xml_.writeStartElement(u"toc"_qs);
    for (const HelpSection& section : source_.Sections()) {
      Begin(section.titles.at(language_), section.entries.front());
      for (const HelpEntry& entry : section.entries) {
        Begin(source_.Page(language_, entry.name).title, entry);
        xml_.writeEndElement();
      }
      xml_.writeEndElement();
    }
    xml_.writeEndElement();
  }

  void WriteKeyword(const QString& attribute, const QString& text, const HelpEntry& entry) {
    xml_.writeEmptyElement(u"keyword"_qs);
    xml_.writeAttribute(attribute, text);
    xml_.writeAttribute(u"ref"_qs, PageFile(language_, entry));
  }

  void WriteKeywords() {
    xml_.writeStartElement(u"keywords"_qs);
    for (const HelpEntry& entry : source_.Entries()) {
      for (const QString& word : source_.Page(language_, entry.name).keywords)
        WriteKeyword(u"name"_qs, word, entry);
      if (entry.topic != 0) WriteKeyword(u"id"_qs, QString::number(entry.topic), entry);
      for (const QString& window : entry.windows) WriteKeyword(u"id"_qs, window, entry);
    }
    xml_.writeEndElement();
  }

  const HelpSource& source_;
  const QString language_;
  QXmlStreamWriter xml_;
};

}  // namespace

void LayOutProject(const HelpSource& source, const QString& sourceFolder, const QString& language,
                   const QString& pictures, const QString& target, bool draft) {
  QStringList files{u"help.css"_qs};
  for (const HelpEntry& entry : source.Entries()) files += PageFile(language, entry);
  for (const QString& file : files) Copy(sourceFolder + u'/' + file, target + u'/' + file);
  for (const QString& name : source.Pictures(language)) {
    if (draft && !QFile::exists(pictures + u'/' + name + u".png"_qs)) continue;
    files += language + u"/pictures/"_qs + name + u".png"_qs;
    Copy(pictures + u'/' + name + u".png"_qs, target + u'/' + files.last());
  }
  QFile project(target + u"/Vorlina.qhp"_qs);
  if (!project.open(QIODevice::WriteOnly)) throw std::runtime_error("cannot write the project");
  Project(source, language, project).Write(files);
}

}  // namespace vorlina
