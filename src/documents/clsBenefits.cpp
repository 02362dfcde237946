#include "zelnor/documents/clsBenefits.h"

#include "zelnor/platform/text.h"

namespace zelnor {

void clsBenefits::Create(CollectionRef<clsCarDetails> colCarDetails) {
  car_details_ = std::move(colCarDetails);
  validated_ = false;
}

Ref<clsCarDetails> clsBenefits::AddCarDetails(const String& strMake, const String& strCO2, eFuel enmFuel,
                                              bool blnAmendment, Currency curPrice, Date datAvailableFrom,
                                              Currency curCashEquiv, const String& strID, Date datAvailTo,
                                              Date datFirstRegd, Long lngZeroEmissionsMileage) {
  Ref<clsCarDetails> result;
  Handled("clsBenefits", "Function AddCarDetails", [&] {
    const auto car = std::make_shared<clsCarDetails>();
    car->Create(strMake, strCO2, enmFuel, blnAmendment, curPrice, datAvailableFrom, curCashEquiv, strID,
                datAvailTo);
    car->FirstRegd(datFirstRegd);
    car->ZeroEmissionsMileage(ToInteger(lngZeroEmissionsMileage));
    CarDetails()->Add(car);
    validated_ = false;
    result = car;
  });
  return result;
}

bool clsBenefits::ParseFromXML(const String& strXML) { return ParseFirstNode(*this, "clsBenefits", strXML); }

bool clsBenefits::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsBenefits", "Function CreateFromXML", [&] {
    car_details_ = nullptr;
    validated_ = false;
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        if (child.IsElement() && UpperCase(child.BaseName()) == "CAR")
          CarDetails()->Add(NewFromXML<clsCarDetails>(child));
      }
      result = true;
    }
  });
  return result;
}

bool clsBenefits::Validated() const { return validated_ && AbsentOrValidated(car_details_); }

String clsBenefits::RootElementName() const { return "Benefits"; }

CollectionRef<clsCarDetails> clsBenefits::CarDetails() {
  if (!car_details_) car_details_ = MakeCollection<clsCarDetails>();
  return car_details_;
}
void clsBenefits::CarDetails(CollectionRef<clsCarDetails> value) {
  car_details_ = std::move(value);
  ClearValidated(car_details_);
}

bool clsBenefits::HasCarDetails() const { return car_details_ && car_details_->Count() > 0; }

XmlNode clsBenefits::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsBenefits", "Function ToXML", [&] {
    result = Element::Single("Benefits", xmlParent).Node();
    if (!car_details_) return;
    for (const Ref<clsCarDetails>& car : *car_details_) Required(car).ToXML(result);
  });
  return result;
}

}  // namespace zelnor
