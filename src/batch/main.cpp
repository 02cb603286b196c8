// vorlina-batch: publishes, imports, checks, saves and restores the catalogs without a display.
#include <QCoreApplication>
#include <QJsonDocument>
#include <QLoggingCategory>
#include <csignal>

#include "base/SafeFile.h"
#include "batch/Arguments.h"
#include "batch/Commands.h"
#include "batch/ConsoleDialogs.h"
#include "batch/Output.h"

using namespace vorlina;

namespace {

enum ExitCode { Succeeded = 0, DidNotSucceed = 1, WrongUsage = 2 };

volatile std::sig_atomic_t stopAsked = 0;

// The second signal ends the program at once, for work that does not listen.
extern "C" void AskToStop(int signal) {
  stopAsked = 1;
  std::signal(signal, SIG_DFL);
}

Outcome Failure(const QString& error) {
  Outcome outcome;
  outcome.ok = false;
  outcome.error = error;
  return outcome;
}

Outcome Run(const Arguments& arguments) {
  ProgressLine line(!arguments.json);
  const Progress progress = [&](qint64 done, qint64 total, const QString& step) {
    line.Show(done, total, step);
    return stopAsked == 0;
  };
  try {
    return RunCommand(arguments, progress);
  } catch (const std::exception& error) {
    return Failure(DescriptionOf(error));
  }
}

void Tell(const Outcome& outcome, const QString& command, bool json) {
  if (json) {
    QJsonObject object = outcome.json;
    object[u"command"_qs] = command;
    object[u"ok"_qs] = outcome.ok;
    if (!outcome.ok) object[u"error"_qs] = outcome.error;
    Print(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
    return;
  }
  if (!outcome.text.isEmpty()) Print(outcome.text);
  if (!outcome.ok) PrintError(outcome.error);
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  TellFileLimitsAsErrors();
  QCoreApplication::setApplicationName(u"Vorlina"_qs);
  QCoreApplication::setOrganizationName(u"Norsel"_qs);
  QCoreApplication::setApplicationVersion(QStringLiteral(VORLINA_VERSION));
  // A broken picture is told by whoever reads it; the decoder's own lines would bury that.
  QLoggingCategory::setFilterRules(u"qt.gui.i*=false"_qs);
  std::signal(SIGINT, AskToStop);
  std::signal(SIGTERM, AskToStop);
  ConsoleDialogs dialogs;
  InstallDialogs(&dialogs);
  ChooseLanguage();
  try {
    const Arguments arguments = ParseArguments(QCoreApplication::arguments().mid(1));
    if (!arguments.language.isEmpty()) SetLanguage(arguments.language);
    if (arguments.help) {
      Print(HelpText().trimmed());
    } else if (arguments.version) {
      Print(u"vorlina-batch "_qs + QCoreApplication::applicationVersion());
    } else {
      const Outcome outcome = Run(arguments);
      Tell(outcome, arguments.command, arguments.json);
      return outcome.ok ? Succeeded : DidNotSucceed;
    }
  } catch (const UsageError& error) {
    PrintError(error.Description() + u"\n\n"_qs + HelpText().trimmed());
    return WrongUsage;
  }
  return Succeeded;
}
