// A profile as it is kept, and what is refused of it.
#pragma once

#include <QJsonObject>
#include <QString>

#include "base/Error.h"
#include "publish/plugin/VorlinaJob.h"

namespace vorlina {

// The identifier of the profile that a catalog has at first.
inline const QString FirstProfileIdentifier = QStringLiteral("standard");

// Why a profile is not stored.
class ProfileRefusal : public Error {
 public:
  ProfileRefusal(QString member, const QString& why) : Error(why), member_(std::move(member)) {}
  // The member of VorlinaProfile, such as "address".
  const QString& Member() const { return member_; }

 private:
  QString member_;
};

// What is kept of the profiles cannot be read.
class DamagedProfiles : public Error {
 public:
  DamagedProfiles();
};

// Why a profile cannot be called that; "" where it can.
QString FaultOfProfileName(const QString& name);

// Whether a text is an address with http or https, and a colour "#rrggbb".
bool IsWebAddress(const QString& text);
bool IsColour(const QString& text);

// The profile without what surrounds its texts, its sizes ascending, its address ending in "/". Throws
// ProfileRefusal for the first member that is no good.
VorlinaProfile GoodProfile(VorlinaProfile profile);

// The kept form: of logo and wide picture the text of the profile's member, of highlights nothing. What the
// former one has and this program does not know stays.
QJsonObject JsonOf(const VorlinaProfile& profile, QJsonObject former);

// What is missing is as in a new profile, and so is a colour, an address or the like that is no good. What
// says what shows is read as it was meant or not at all: throws DamagedProfiles.
VorlinaProfile ProfileOf(const QJsonObject& kept);

}  // namespace vorlina
