// The window that asks how and where a catalog is to be published, whatever plug-in does it: it shows a
// preview, publishes, and keeps what was chosen with the catalog. While it publishes it stays, so that
// nothing that was typed is lost where that fails.
#pragma once

#include <QDialog>
#include <QHash>
#include <functional>
#include <memory>

#include "publish/PublishMemory.h"
#include "publish/WidgetPublishOptions.h"
#include "publish/plugin/IVorlinaPlugin.h"

namespace vorlina {

class Connection;
class WidgetPublishFields;

namespace Ui {
class frmPublish;
}

class frmPublish : public QDialog {
  Q_OBJECT

 public:
  explicit frmPublish(QWidget* parent = nullptr);
  ~frmPublish() override;

  // The plug-in's identifier.
  QString Plugin;
  Connection* Connessione = nullptr;
  int IDCatalogo = 0;
  IVorlinaPublisher* Publisher = nullptr;

  // To be called once, before the window is shown. Throws Error. False where the catalog's profiles cannot be
  // read and the user leaves it at that.
  bool LoadForm();

  // Once the window was accepted: what came of the publication, of which catalog and profile it is, and where
  // it went.
  const VorlinaReport& Report() const { return report_; }
  QString What() const;
  QString Target() const;

  void reject() override;

 private:
  void ConnectControls();
  void Attempt(const std::function<void()>& step);
  bool HaveProfiles();
  void Localize_Form();
  void TellLanguage();
  void Fit();
  void ListProfiles(const QString& shown);
  void ShowProfile();
  void Leave();
  void TurnToProfile(int index);
  void NewProfile();
  void DuplicateProfile();
  void RenameProfile();
  void DeleteProfile();
  QString FaultOfName(const VorlinaProfile& profile) const;
  bool AskName(const QString& title, VorlinaProfile& profile);
  void Browse();
  void ChooseHighlights();
  bool IsChanged() const;
  void RequireAsShown();
  void Store(const VorlinaProfile& profile);
  void GoTo(QWidget& control);
  void RequireGoodTarget();
  bool MayBeWithoutPictures();
  VorlinaProfile InUse(bool preview);
  VorlinaReport Run(const QString& target, bool preview);
  void ShowPreview();
  void Publish();
  void Remember(const QString& target);

  std::unique_ptr<Ui::frmPublish> ui_;
  std::unique_ptr<WidgetPublishFields> fields_;
  WidgetPublishOptions options_;
  VorlinaTarget target_;
  QList<VorlinaProfile> profiles_;
  qsizetype current_ = 0;
  VorlinaProfile shown_;                // as the controls had it when it was shown
  QHash<QString, PublishMemory> left_;  // target and options of the profiles that were looked at, as typed
  VorlinaReport report_;
  QString previewFolder_;
  QString catalog_;         // its name, on one line
  bool busy_ = false;       // with publishing
  bool isStopped_ = false;  // what was last published or shown
};

}  // namespace vorlina
