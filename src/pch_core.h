// Precompiled for the core and the tests on it: what nearly every file includes.
#pragma once
#include <SQLiteCpp/SQLiteCpp.h>

#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <memory>
#include <optional>
#include <vector>
