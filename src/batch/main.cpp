// vorlina-batch: publishes, imports, checks, saves and restores the catalogs without a display.
#include <QGuiApplication>
#include <QJsonDocument>
#include <QLoggingCategory>
#include <csignal>

#include "base/SafeFile.h"
#include "batch/Arguments.h"
#include "batch/Commands.h"
#include "batch/ConsoleDialogs.h"
#include "batch/Output.h"
#include "support/Language.h"

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

QStringList ArgumentsOf(int count, char** values) {
  QStringList arguments;
  for (int i = 1; i < count; ++i) arguments += QString::fromLocal8Bit(values[i]);
  return arguments;
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

int RunLine(const QStringList& line) {
  try {
    const Arguments arguments = ParseArguments(line);
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

}  // namespace

int main(int argc, char** argv) {
  // Plug-ins may paint, also where there is no display, and whatever platform the user's session has. Options
  // such as --plugin would mean something else to Qt.
  char offscreen[][16] = {"vorlina-batch", "-platform", "offscreen", "-platformtheme", "offscreen"};
  char* platform[] = {offscreen[0], offscreen[1], offscreen[2], offscreen[3], offscreen[4], nullptr};
  int platformCount = 5;
  // It looks for the folder of a session, which a nightly job has not, and would say so.
  QLoggingCategory::setFilterRules(u"default.warning=false"_qs);
  const QGuiApplication application(platformCount, platform);
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
  return RunLine(ArgumentsOf(argc, argv));
}
