#pragma once

/// @file
/// What the examples of headers and guide take for granted: an application's objects, and what it does with
/// what it gets. An example that declares one of these names itself means its own. Nothing of this is ever
/// defined.

#include "zelnor/common/alsAppSettings.h"
#include "zelnor/common/clsLog.h"
#include "zelnor/common/record.h"
#include "zelnor/common/recordset.h"
#include "zelnor/controller/clsFTP.h"
#include "zelnor/controller/clsRTIController.h"
#include "zelnor/desktop/desktop_host.h"
#include "zelnor/documents/clsCarDetails.h"
#include "zelnor/documents/clsEmployee.h"
#include "zelnor/documents/clsEmployeeDetails.h"
#include "zelnor/documents/clsEmployment.h"
#include "zelnor/documents/clsPayment.h"
#include "zelnor/documents/clsSectionEPS.h"
#include "zelnor/documents/clsSectionErrorResponse.h"
#include "zelnor/documents/clsSectionFPS.h"
#include "zelnor/documents/clsSectionIRHeader.h"
#include "zelnor/documents/clsStarter.h"
#include "zelnor/documents/clsSubmission.h"
#include "zelnor/envelope/clsGTMSenderDetails.h"
#include "zelnor/envelope/clsGovTalkMessage.h"
#include "zelnor/envelope/clsSHA1.h"
#include "zelnor/platform/dialog.h"
#include "zelnor/platform/files.h"
#include "zelnor/platform/host.h"
#include "zelnor/platform/terminal_host.h"
#include "zelnor/standin/local_gateway.h"
#include "zelnor/validation/clsException.h"
#include "zelnor/validation/vlsEmployeeValidator.h"

#include <iostream>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zelnor::given {

// What it has: the reporting, a document and its parts, a message and answers to it.
extern clsRTIController rti;
extern Ref<clsSubmission> submission;
extern Ref<clsSectionIRHeader> header;
extern Ref<clsSectionFPS> fps;
extern Ref<clsSectionEPS> eps;
extern Ref<clsEmployee> employee;
extern Ref<clsEmployeeDetails> details;
extern Ref<clsEmployment> employment;
extern Ref<clsEmployment> job;
extern Ref<clsStarter> starter;
extern Ref<clsPayment> payment;
extern Ref<clsCarDetails> car;
extern Ref<clsGovTalkMessage> message;
extern Ref<clsSectionErrorResponse> response;
extern vlsEmployeeValidator validator;
extern DialogRequest request;

// What it knows.
extern const String text;  // of a document
extern const String xml;   // of an element
extern const String user;
extern const String password;
extern const String id;  // of a submission that is polled for
extern std::ostream& log;
extern const String folder;
extern const std::vector<std::string> pieces;  // of a file

// What a record knows, and writes.
extern XmlNode xmlParent;
extern Date start_date_;
extern bool student_loan_;
extern Currency amount_;

// What it does.
void AddButton(std::string_view caption);
void KeepReceipt(const String& id);
void PollLater(const String& id);
void Remember(Long answer);
void RunMyMessageLoopOnce();
void Show(const String& errors);
bool ShowInMyWindow(const String& text, const String& title);
void ShowProgress(Long sent, Long total);
void ShowProgress(const String& stage, const String& detail, Long percent);
void Warn(const String& text);

/// Its dialog.
class PayrollWindow {
 public:
  struct Outcome {
    std::string_view caption;  // of the button
    bool ticked = false;
  };
  Outcome Ask(const DialogRequest& request, std::span<const std::string_view> captions);
};

}  // namespace zelnor::given
