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

  decltype(&PQconninfoParse) ConninfoParse;
  decltype(&PQconninfo) Conninfo;
  decltype(&PQconninfoFree) ConninfoFree;
  decltype(&PQfreemem) FreeMem;
  decltype(&PQconnectStartParams) ConnectStart;
  decltype(&PQconnectPoll) ConnectPoll;
  decltype(&PQfinish) Finish;
  decltype(&PQstatus) Status;
  decltype(&PQtransactionStatus) TransactionStatus;
  decltype(&PQerrorMessage) ErrorMessage;
  decltype(&PQconnectionNeedsPassword) NeedsPassword;
  decltype(&PQsocket) Socket;
  decltype(&PQhost) Host;
  decltype(&PQhostaddr) HostAddress;
  decltype(&PQsetnonblocking) SetNonblocking;
  decltype(&PQsetNoticeReceiver) SetNoticeReceiver;
  decltype(&PQsendQuery) SendQuery;
  decltype(&PQsendQueryParams) SendQueryParams;
  decltype(&PQsendPrepare) SendPrepare;
  decltype(&PQsendQueryPrepared) SendQueryPrepared;
  decltype(&PQenterPipelineMode) EnterPipelineMode;
  decltype(&PQexitPipelineMode) ExitPipelineMode;
  decltype(&PQpipelineSync) PipelineSync;
  decltype(&PQflush) Flush;
  decltype(&PQconsumeInput) ConsumeInput;
  decltype(&PQisBusy) IsBusy;
  decltype(&PQgetResult) GetResult;
  decltype(&PQnotifies) Notifies;
  decltype(&PQgetCancel) GetCancel;
  decltype(&PQcancel) Cancel;
  decltype(&PQfreeCancel) FreeCancel;
  decltype(&PQresultStatus) ResultStatus;
  decltype(&PQresultErrorField) ResultErrorField;
  decltype(&PQclear) Clear;
  decltype(&PQntuples) RowCount;
  decltype(&PQnfields) FieldCount;
  decltype(&PQfname) FieldName;
  decltype(&PQftype) FieldType;
  decltype(&PQgetisnull) IsNull;
  decltype(&PQgetvalue) GetValue;
  decltype(&PQgetlength) GetLength;

 private:
  void* library_;
};

/// The library, loaded by whoever needs it first.
using LibpqPtr = std::shared_ptr<const Libpq>;

}  // namespace veyra::postgres
