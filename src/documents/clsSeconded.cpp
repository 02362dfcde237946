#include "zelnor/documents/clsSeconded.h"

namespace zelnor {
namespace {

constexpr std::string_view kOver6Months = "Stay183DaysOrMore";
constexpr std::string_view kLessThan6Months = "StayLessThan183Days";
constexpr std::string_view kInOutUK = "InOutUK";

std::string_view ElementOf(SECONDMENT_LENGTH length) {
  switch (length) {
    case SECONDMENT_LENGTH::StayOver6Months:
      return kOver6Months;
    case SECONDMENT_LENGTH::StayLessThan6Months:
      return kLessThan6Months;
    default:
      return kInOutUK;
  }
}

}  // namespace

void clsSeconded::Create(SECONDMENT_LENGTH enmSecondLength, bool blnEEACommCit, bool blnEPM6) {
  secondment_length_ = enmSecondLength;
  is_citizen_ = blnEEACommCit;
  is_epm6_ = blnEPM6;
  validated_ = false;
}

bool clsSeconded::ParseFromXML(const String& strXML) { return ParseFirstNode(*this, "clsSeconded", strXML); }

bool clsSeconded::CreateFromXML(const XmlNode& xmlNode) {
  bool result = false;
  Handled("clsSeconded", "Function CreateFromXML", [&] {
    is_citizen_ = false;
    is_epm6_ = false;
    validated_ = false;
    if (xmlNode.NodeName() == RootElementName()) {
      for (const XmlNode& child : xmlNode.ChildNodes()) {
        const std::string_view name = child.BaseName();
        if (name == kOver6Months) secondment_length_ = SECONDMENT_LENGTH::StayOver6Months;
        if (name == kLessThan6Months) secondment_length_ = SECONDMENT_LENGTH::StayLessThan6Months;
        if (name == kInOutUK) secondment_length_ = SECONDMENT_LENGTH::InOutUK;
        if (name == "EEACitizen") is_citizen_ = true;
        if (name == "EPM6") is_epm6_ = true;
      }
      result = true;
    }
  });
  return result;
}

String clsSeconded::RootElementName() const { return "Seconded"; }

SECONDMENT_LENGTH clsSeconded::SecondmentLength() const { return secondment_length_; }
void clsSeconded::SecondmentLength(SECONDMENT_LENGTH value) { Change(secondment_length_, value); }

bool clsSeconded::IsCitizenOfEEAOrCommonwealth() const { return is_citizen_; }
void clsSeconded::IsCitizenOfEEAOrCommonwealth(bool value) { Change(is_citizen_, value); }

bool clsSeconded::IsEPM6() const { return is_epm6_; }
void clsSeconded::IsEPM6(bool value) { Change(is_epm6_, value); }

XmlNode clsSeconded::ToXML(const XmlNode& xmlParent) {
  XmlNode result;
  Handled("clsSeconded", "Function ToXML", [&] {
    Element out = Element::Single("Seconded", xmlParent);
    result = out.Node();
    out.Remove(kOver6Months);
    out.Remove(kLessThan6Months);
    out.Remove(kInOutUK);
    out.Text(ElementOf(secondment_length_), "yes");
    out.Yes("EEACitizen", is_citizen_);
    out.Yes("EPM6", is_epm6_);
  });
  return result;
}

}  // namespace zelnor
