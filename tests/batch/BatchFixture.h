// Runs vorlina-batch as a program of its own, with settings and a home of its own.
#pragma once

#include <QDeadlineTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include "store/CatalogDatabase.h"
#include "support/CatalogFixture.h"

namespace vorlina {

struct Ran {
  int exitCode = -1;
  bool killed = false;
  QString out;
  QString err;
  QJsonObject Json() const { return QJsonDocument::fromJson(out.toUtf8()).object(); }
};

class BatchFixture : public CatalogFixture {
 protected:
  BatchFixture() { QFile::link(QStringLiteral(TEST_PLUGINS), AppFile(u"PubWiz"_qs)); }

  void Start(QProcess& process, const QStringList& arguments) const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& name : {u"HOME"_qs, u"XDG_CONFIG_HOME"_qs, u"XDG_DATA_HOME"_qs})
      environment.insert(name, home_.path());
    environment.insert(u"LC_ALL"_qs, u"C.UTF-8"_qs);
    environment.remove(u"DISPLAY"_qs);
    environment.insert(u"QT_QPA_PLATFORM"_qs, u"xcb"_qs);
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(outside_.path());
    process.start(QStringLiteral(BATCH_PROGRAM), arguments);
    ASSERT_TRUE(process.waitForStarted());
  }

  static Ran Ended(QProcess& process) {
    EXPECT_TRUE(process.state() == QProcess::NotRunning || process.waitForFinished(120'000));
    return {process.exitCode(), process.exitStatus() == QProcess::CrashExit,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
  }

  Ran Batch(const QStringList& arguments) const {
    QProcess process;
    Start(process, arguments);
    return Ended(process);
  }

  // On the application folder of this test.
  QStringList Here(const QStringList& arguments) const {
    return arguments + QStringList{u"--app"_qs, AppPath()};
  }

  // Starts the program and kills it, unless it ends before: this time after its start, or, where a file is
  // given, after that has come to be there. Whether the kill hit.
  bool Killed(const QStringList& arguments, std::chrono::microseconds after, const QString& file = {}) const {
    QProcess process;
    Start(process, arguments);
    while (!file.isEmpty() && !QFileInfo::exists(file) && !process.waitForFinished(0)) {
    }
    const QDeadlineTimer end(after);
    while (!end.hasExpired() && !process.waitForFinished(0)) {
    }
    process.kill();
    return Ended(process).killed;
  }

  const QTemporaryDir home_;
};

}  // namespace vorlina
