#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "base/Settings.h"
#include "shell/WidgetApplication.h"
#include "support/ScriptedDialogs.h"

int main(int argc, char** argv) {
  vorlina::WidgetApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Vorlina"));
  QTemporaryDir settings;
  vorlina::SetSettingsFolder(settings.path());
  vorlina::UnexpectedModalGuard guard;
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
