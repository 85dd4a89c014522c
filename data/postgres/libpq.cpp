#include "data/postgres/libpq.h"

#include <dlfcn.h>

#include "data/errors.h"

namespace veyra::postgres {

namespace {

constexpr const char* kLibrary = "libpq.so.5";

void* Open(const std::string& file) {
  void* const library = ::dlopen(kLibrary, RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    throw DatabaseError({file,
                         Phrase::Tr("The calendar is shared on a server, and what talks to such "
                                    "servers is not on this machine."),
                         Phrase::Tr("Install the package libpq5, and start again.")});
  }
  return library;
}

template <typename Function>
void Find(void* library, const std::string& file, Function& function, const char* name) {
  void* const found = ::dlsym(library, name);
  if (found == nullptr) {
    throw DatabaseError({file, Phrase::Tr("The library %1 lacks %2.", kLibrary, name),
                         Phrase::Tr("Bring the package libpq5 up to date, and start again.")});
  }
  function = reinterpret_cast<Function>(found);
}

}  // namespace

Libpq::Libpq(const std::string& file) : library_(Open(file)) {
  const auto find = [&](auto& function, const char* name) { Find(library_, file, function, name); };
  find(ConninfoParse, "PQconninfoParse");
  find(Conninfo, "PQconninfo");
  find(ConninfoFree, "PQconninfoFree");
  find(FreeMem, "PQfreemem");
  find(ConnectStart, "PQconnectStartParams");
  find(ConnectPoll, "PQconnectPoll");
  find(Finish, "PQfinish");
  find(Status, "PQstatus");
  find(TransactionStatus, "PQtransactionStatus");
  find(ErrorMessage, "PQerrorMessage");
  find(NeedsPassword, "PQconnectionNeedsPassword");
  find(Socket, "PQsocket");
  find(Host, "PQhost");
  find(HostAddress, "PQhostaddr");
  find(SetNonblocking, "PQsetnonblocking");
  find(SetNoticeReceiver, "PQsetNoticeReceiver");
  find(SendQuery, "PQsendQuery");
  find(SendQueryParams, "PQsendQueryParams");
  find(SendPrepare, "PQsendPrepare");
  find(SendQueryPrepared, "PQsendQueryPrepared");
  find(EnterPipelineMode, "PQenterPipelineMode");
  find(ExitPipelineMode, "PQexitPipelineMode");
  find(PipelineSync, "PQpipelineSync");
  find(Flush, "PQflush");
  find(ConsumeInput, "PQconsumeInput");
  find(IsBusy, "PQisBusy");
  find(GetResult, "PQgetResult");
  find(Notifies, "PQnotifies");
  find(GetCancel, "PQgetCancel");
  find(Cancel, "PQcancel");
  find(FreeCancel, "PQfreeCancel");
  find(ResultStatus, "PQresultStatus");
  find(ResultErrorField, "PQresultErrorField");
  find(Clear, "PQclear");
  find(RowCount, "PQntuples");
  find(FieldCount, "PQnfields");
  find(FieldName, "PQfname");
  find(FieldType, "PQftype");
  find(IsNull, "PQgetisnull");
  find(GetValue, "PQgetvalue");
  find(GetLength, "PQgetlength");
}

}  // namespace veyra::postgres
