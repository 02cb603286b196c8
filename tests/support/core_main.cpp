#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTemporaryDir>

#include "base/Settings.h"

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("Vorlina"));
  QTemporaryDir settings;
  vorlina::SetSettingsFolder(settings.path());
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
