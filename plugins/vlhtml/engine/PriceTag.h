// Prices as a catalog's owner types them: how they are shown, and what they are in figures.
#pragma once

#include <string>

namespace vlhtml {

class PriceTag {
 public:
  // name is that of the value which is the price, such as "Price £"; "" where there is none. decimalComma:
  // whether readers write one and a half as "1,5", with the sign behind the number.
  PriceTag(const std::string& name, bool decimalComma);

  // The text of a price, with the sign of the currency that the name has: "74,00 €", "£74.00". What is no
  // plain number stays as it was typed.
  std::string Text(const std::string& value) const;
  // The name beside a price as it is shown, without the sign where that has it.
  const std::string& Label(const std::string& value, const std::string& shown) const;
  // "1250.00"; "" for what is no plain number, or can be read in two ways.
  std::string Amount(const std::string& value) const;
  // The currency's code, such as "EUR", told by the name or the price itself; "" where it is not known.
  std::string Currency(const std::string& value) const;

 private:
  std::string name_, bareName_, sign_;
  bool decimalComma_;
};

}  // namespace vlhtml
