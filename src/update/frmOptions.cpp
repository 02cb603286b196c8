#include "update/frmOptions.h"

#include <QDir>
#include <QScreen>
#include <QScrollBar>
#include <QStorageInfo>
#include <array>

#include "base/Commands.h"
#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Settings.h"
#include "base/WidgetPlace.h"
#include "ui_frmOptions.h"
#include "update/PasswordStore.h"

namespace vorlina {
namespace {

struct Option {
  const char16_t* key;
  const char16_t* control;
  const char16_t* fallback;
};

constexpr std::array<Option, 9> Options{{
    {u"CDUnit", u"CmbDrive", u"D:"},
    {u"Url", u"txtURLAggiornamento", u"https://updates.vorlina.example/supporto/vl/updates"},
    {u"Host", u"txtHost", u"updates.vorlina.example"},
    {u"ProxyType", u"cmbProxyServer", u"No Proxy"},
    {u"Proxy", u"txtProxy", u"0.0.0.1"},
    {u"Port", u"txtProxyPort", u"80"},
    {u"Username", u"txtUsername", u""},
    {u"Password", u"txtPassword", u""},
    {u"UseRemoteDns", u"chkRemoteDNS", u"1"},
}};

const QString Section = u"Aggiornamento"_qs;

#ifdef Q_OS_LINUX
// As the system writes it in its list.
QString PathFrom(const QByteArray& text) {
  QByteArray path = text;
  path.replace("\\040", " ").replace("\\011", "\t").replace("\\012", "\n").replace("\\134", "\\");
  return QFile::decodeName(path);
}

// The volumes that a person takes for drives: those of a device or a network, once each. The network's are
// asked nothing: one that is gone would hold the window up for minutes.
QStringList Drives() {
  QStringList drives;
  QFile mounts(u"/proc/self/mounts"_qs);
  mounts.open(QIODevice::ReadOnly);
  for (const QByteArray& line : mounts.readAll().split('\n')) {
    const QList<QByteArray> fields = line.split(' ');
    if (fields.size() < 3 || fields[2] == "autofs") continue;
    const QString root = PathFrom(fields[1]);
    const bool network = fields[0].contains(':') || fields[0].startsWith("//");
    const bool device = fields[0].contains('/') || root == u"/";
    if ((network || (device && QFileInfo(root).isDir())) && !drives.contains(root)) drives += root;
  }
  return drives;
}
#else
QStringList Drives() {
  QStringList drives;
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes())
    if (volume.isReady()) drives += QDir::toNativeSeparators(volume.rootPath());
  return drives;
}
#endif

// What is stored shows also where the list does not have it.
void ShowStored(QComboBox& combo, const QString& text) {
  if (combo.isEditable()) return combo.setEditText(text);
  if (combo.findText(text) < 0) combo.addItem(text);
  combo.setCurrentText(text);
}

void Show(QWidget& control, const QString& text) {
  if (auto* combo = qobject_cast<QComboBox*>(&control)) return ShowStored(*combo, text);
  if (auto* line = qobject_cast<QLineEdit*>(&control)) return line->setText(text);
  qobject_cast<QCheckBox*>(&control)->setChecked(text == u"1");
}

QString TextOf(const QWidget& control) {
  if (const auto* combo = qobject_cast<const QComboBox*>(&control)) return combo->currentText();
  if (const auto* line = qobject_cast<const QLineEdit*>(&control)) return line->text();
  return qobject_cast<const QCheckBox*>(&control)->isChecked() ? u"1"_qs : u"0"_qs;
}

}  // namespace

frmOptions::frmOptions(QWidget* parent) : QDialog(parent), ui_(new Ui::frmOptions) {
  ui_->setupUi(this);
  // The tab shows through.
  ui_->scrOptions->viewport()->setAutoFillBackground(false);
  ui_->picOptions_0->setAutoFillBackground(false);
  connect(ui_->cmdOK, &QPushButton::clicked, this, &frmOptions::SaveAndClose);
  connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmOptions::reject);
}

frmOptions::~frmOptions() = default;

void frmOptions::LoadForm() {
  LoadOptions();
  Localize_Form();
  Fit();
  ui_->CmbDrive->setFocus(Qt::TabFocusReason);
  move(screen()->availableGeometry().center() - rect().center());
}

// Large enough for all that can be scrolled, where the screen is.
void frmOptions::Fit() {
  const QScrollArea& scrolled = *ui_->scrOptions;
  const QSize bar(scrolled.verticalScrollBar()->sizeHint().width(), 0);
  resize(sizeHint() - scrolled.sizeHint() + ui_->picOptions_0->sizeHint() + bar);
  FitIntoScreen(*this);
}

void frmOptions::LoadOptions() {
  ui_->CmbDrive->addItems(Drives());
  for (const Option& option : Options) {
    QWidget* control = findChild<QWidget*>(Text(option.control));
    if (control == ui_->txtPassword)
      ReadPassword();
    else
      Show(*control, GetSetting(ApplicationTitle(), Section, Text(option.key), Text(option.fallback)));
  }
}

// What the user types before the keyring answers stays.
void frmOptions::ReadPassword() {
  ThePasswordStore().Read(this, [this](const std::optional<QString>& password) {
    passwordKnown_ = password.has_value();
    if (passwordKnown_ && !ui_->txtPassword->isModified()) ui_->txtPassword->setText(*password);
  });
}

// A password that the keyring has not told is not taken for an empty one.
void frmOptions::SaveOptions() {
  for (const Option& option : Options) {
    const QWidget* control = findChild<QWidget*>(Text(option.control));
    if (control != ui_->txtPassword)
      SaveSetting(ApplicationTitle(), Section, Text(option.key), TextOf(*control));
    else if (passwordKnown_ || ui_->txtPassword->isModified())
      ThePasswordStore().Save(ui_->txtPassword->text());
  }
}

void frmOptions::SaveAndClose() {
  try {
    SaveOptions();
  } catch (const Error& error) {
    return ShowError(this, error.Description());
  }
  accept();
}

void frmOptions::Localize_Form() { ui_->retranslateUi(this); }

}  // namespace vorlina
