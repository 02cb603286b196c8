// Addresses as users type them, made into links that are safe to follow.
#pragma once

#include <QString>
#include <string>

namespace vlhtml {

// A web address that a link may have: http or https and nothing else. "example.com" gets its scheme.
std::string SafeUrl(const std::string& address);
// An address for mail: of several the first. "" for what is none.
std::string SafeMail(const std::string& address);
// What a telephone dials: of several numbers the first. "" for what is none.
std::string Dialled(const std::string& number);
// A telephone number that does not break over two lines.
std::string Unbroken(const std::string& number);
// A mail with a subject. The address is a safe one.
std::string MailLink(const std::string& address, const std::string& subject);
// An address without what a reader need not see: "www.example.com".
std::string ShownAddress(const std::string& url);

}  // namespace vlhtml
