#pragma once

#include <libpq-fe.h>

#include <memory>
#include <string>

namespace veyra::postgres {

/// The C library that talks to a server, loaded when the first shared calendar is opened: a program
/// whose calendars are files neither needs it nor waits for it. Stays loaded until the program
/// ends.
class Libpq {
 public:
  /// Throws DatabaseError, which names `file`, when the library is not on this machine.
  explicit Libpq(const std::string& file);

  decltype(&PQconninfoParse) ConninfoParse = nullptr;
  decltype(&PQconninfo) Conninfo = nullptr;
  decltype(&PQconninfoFree) ConninfoFree = nullptr;
  decltype(&PQfreemem) FreeMem = nullptr;
  decltype(&PQconnectStartParams) ConnectStart = nullptr;
  decltype(&PQconnectPoll) ConnectPoll = nullptr;
  decltype(&PQfinish) Finish = nullptr;
  decltype(&PQstatus) Status = nullptr;
  decltype(&PQtransactionStatus) TransactionStatus = nullptr;
  decltype(&PQerrorMessage) ErrorMessage = nullptr;
  decltype(&PQconnectionNeedsPassword) NeedsPassword = nullptr;
  decltype(&PQsocket) Socket = nullptr;
  decltype(&PQhost) Host = nullptr;
  decltype(&PQhostaddr) HostAddress = nullptr;
  decltype(&PQsetnonblocking) SetNonblocking = nullptr;
  decltype(&PQsetNoticeReceiver) SetNoticeReceiver = nullptr;
  decltype(&PQsendQuery) SendQuery = nullptr;
  decltype(&PQsendQueryParams) SendQueryParams = nullptr;
  decltype(&PQsendPrepare) SendPrepare = nullptr;
  decltype(&PQsendQueryPrepared) SendQueryPrepared = nullptr;
  decltype(&PQenterPipelineMode) EnterPipelineMode = nullptr;
  decltype(&PQexitPipelineMode) ExitPipelineMode = nullptr;
  decltype(&PQpipelineSync) PipelineSync = nullptr;
  decltype(&PQflush) Flush = nullptr;
  decltype(&PQconsumeInput) ConsumeInput = nullptr;
  decltype(&PQisBusy) IsBusy = nullptr;
  decltype(&PQgetResult) GetResult = nullptr;
  decltype(&PQnotifies) Notifies = nullptr;
  decltype(&PQgetCancel) GetCancel = nullptr;
  decltype(&PQcancel) Cancel = nullptr;
  decltype(&PQfreeCancel) FreeCancel = nullptr;
  decltype(&PQresultStatus) ResultStatus = nullptr;
  decltype(&PQresultErrorField) ResultErrorField = nullptr;
  decltype(&PQclear) Clear = nullptr;
  decltype(&PQntuples) RowCount = nullptr;
  decltype(&PQnfields) FieldCount = nullptr;
  decltype(&PQfname) FieldName = nullptr;
  decltype(&PQftype) FieldType = nullptr;
  decltype(&PQgetisnull) IsNull = nullptr;
  decltype(&PQgetvalue) GetValue = nullptr;
  decltype(&PQgetlength) GetLength = nullptr;

 private:
  void* library_;
};

/// The library, loaded by whoever needs it first.
using LibpqPtr = std::shared_ptr<const Libpq>;

}  // namespace veyra::postgres
