#include "zelnor/documents/clsCarDetails.h"

#include "zelnor/common/modPublicEnums.h"
#include "zelnor/platform/conversions.h"
#include "zelnor/platform/text.h"

namespace zelnor {
namespace {

// Electric and hybrid cars go out as "all other", though their letters are understood.
std::string_view FuelLetter(eFuel fuel) {
  switch (fuel) {
    case eFuel::enmDiesel:
      return "D";
    case eFuel::enmDieselEuroStd:
      return "F";
    default:
      return "A";
  }
}

eFuel FuelFromLetter(const String& letter) {
  if (letter == "A") return eFuel::enmAllOther;
  if (letter == "E") return eFuel::enmElectric;
  if (letter == "H") return eFuel::enmHybrid;
  if (letter == "F") return eFuel::enmDieselEuroStd;
  return eFuel::enmDiesel;
}

}  // namespace

void clsCarDetails::Create(const String& strMake, const String& strCO2, eFuel enmFuel, bool blnAmendment,
                           Currency curPrice, Date datAvailFrom, Currency curCashEquiv, const String& strID,
                           Date datAvailTo, Ref<clsFreeFuel> objFreeFuel) {
  make_ = strMake;
  co2_ = strCO2;
  fuel_ = enmFuel;
  amendment_ = blnAmendment;
  price_ = curPrice;
  avail_from_ = datAvailFrom;
  cash_equiv_ = curCashEquiv;
  id_ = strID;
  avail_to_ = datAvailTo;
  free_fuel_ = std::move(objFreeFuel);
  validated_ = false;
}

bool clsCarDetails::ParseFromXML(const String& strXML) {
  return ParseFirstNode(*this, "clsCarDetails", strXML);
}

bool clsCarDetails::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsCarDetails", "Function CreateFromXML", [&] {
    *this = clsCarDetails();
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        if (!child.IsElement()) continue;
        const std::string_view name = child.BaseName();
        if (name == "Make") make_ = child.Text();
        if (name == "FirstRegd") first_regd_ = ToDate(child.Text());
        if (name == "CO2") co2_ = child.Text();
        if (name == "ZeroEmissionsMileage") zero_emissions_mileage_ = ToInteger(child.Text());
        if (name == "Fuel") fuel_ = FuelFromLetter(UpperCase(child.Text()));
        if (name == "ID") id_ = child.Text();
        if (name == "Amendment") amendment_ = IsYes(child.Text());
        if (name == "Price") price_ = ToCurrency(child.Text());
        if (name == "AvailFrom") avail_from_ = ToDate(child.Text());
        if (name == "CashEquiv") cash_equiv_ = ToCurrency(child.Text());
        if (name == "AvailTo") avail_to_ = ToDate(child.Text());
        if (name == "FreeFuel") free_fuel_ = NewFromXML<clsFreeFuel>(child);
      }
      result = true;
    }
  });
  return result;
}

bool clsCarDetails::Validated() const { return validated_ && AbsentOrValidated(free_fuel_); }

String clsCarDetails::RootElementName() const { return "Car"; }

String clsCarDetails::Make() const { return make_; }
String clsCarDetails::CO2() const { return co2_; }
eFuel clsCarDetails::Fuel() const { return fuel_; }
String clsCarDetails::ID() const { return id_; }
bool clsCarDetails::Amendment() const { return amendment_; }
Currency clsCarDetails::Price() const { return price_; }
Date clsCarDetails::AvailFrom() const { return avail_from_; }
Currency clsCarDetails::CashEquiv() const { return cash_equiv_; }
Date clsCarDetails::AvailTo() const { return avail_to_; }

Date clsCarDetails::FirstRegd() const { return first_regd_; }
void clsCarDetails::FirstRegd(Date value) { Change(first_regd_, value); }

Integer clsCarDetails::ZeroEmissionsMileage() const { return zero_emissions_mileage_; }
void clsCarDetails::ZeroEmissionsMileage(Integer value) { Change(zero_emissions_mileage_, value); }

Ref<clsFreeFuel> clsCarDetails::FreeFuel() { return MadeWhenAbsent(free_fuel_); }
void clsCarDetails::FreeFuel(Ref<clsFreeFuel> value) {
  free_fuel_ = std::move(value);
  ClearValidated(free_fuel_);
}

bool clsCarDetails::HasFuel() const { return free_fuel_ != nullptr; }

XmlNode clsCarDetails::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsCarDetails", "Function ToXML", [&] {
    Element out = Element::Appended("Car", xmlParent);
    result = out.Node();
    out.Text("Make", make_);
    out.Day("FirstRegd", first_regd_);
    out.Text("CO2", co2_);
    out.OptionalNumber("ZeroEmissionsMileage", zero_emissions_mileage_);
    out.Text("Fuel", FuelLetter(fuel_));
    out.OptionalText("ID", id_);
    out.YesNo("Amendment", amendment_);
    out.Money("Price", price_);
    out.Day("AvailFrom", avail_from_);
    out.Money("CashEquiv", cash_equiv_);
    out.OptionalDay("AvailTo", avail_to_);
    if (free_fuel_) free_fuel_->ToXML(result);
  });
  return result;
}

}  // namespace zelnor
