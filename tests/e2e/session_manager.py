"""A session manager as a desktop has one: it says where it listens, and when it is told "end" on its
standard input it ends the session. A program of its own; its only client is the first that comes.
"""

import ctypes as c
import select
import sys

_NO_INTERACTION, _ANY_INTERACTION = 0, 2
_SAVE_LOCAL, _SAVE_BOTH = 1, 2

_ice = c.CDLL("libICE.so.6")
_sm = c.CDLL("libSM.so.6")
_libc = c.CDLL(None)

_AcceptHost = c.CFUNCTYPE(c.c_int, c.c_char_p)
_IoError = c.CFUNCTYPE(None, c.c_void_p)
_Register = c.CFUNCTYPE(c.c_int, c.c_void_p, c.c_void_p, c.c_void_p)
_OneNumber = c.CFUNCTYPE(None, c.c_void_p, c.c_void_p, c.c_int)
_Plain = c.CFUNCTYPE(None, c.c_void_p, c.c_void_p)
_SaveRequest = c.CFUNCTYPE(None, c.c_void_p, c.c_void_p, c.c_int, c.c_int, c.c_int, c.c_int, c.c_int)
_CloseConnection = c.CFUNCTYPE(None, c.c_void_p, c.c_void_p, c.c_int, c.c_void_p)
_SomeProperties = c.CFUNCTYPE(None, c.c_void_p, c.c_void_p, c.c_int, c.c_void_p)
_KINDS = (_Register, _OneNumber, _OneNumber, _SaveRequest, _Plain, _OneNumber, _CloseConnection,
          _SomeProperties, _SomeProperties, _Plain)
_ALL_CALLBACKS = (1 << len(_KINDS)) - 1


class _Callbacks(c.Structure):
    _fields_ = [pair for i, kind in enumerate(_KINDS)
                for pair in ((f"callback{i}", kind), (f"data{i}", c.c_void_p))]


_NewClient = c.CFUNCTYPE(c.c_int, c.c_void_p, c.c_void_p, c.POINTER(c.c_ulong),
                         c.POINTER(_Callbacks), c.c_void_p)


class SessionManager:
    def __init__(self):
        self.client = None
        self.is_ending = False
        self._kept = []  # What the library calls must not be freed.
        count, self._listening = c.c_int(), c.POINTER(c.c_void_p)()
        error = c.create_string_buffer(256)
        accept = self._keep(_AcceptHost(lambda host: 1))
        _ice._IceTransNoListen(b"tcp")
        _ice.IceSetIOErrorHandler(self._keep(_IoError(lambda connection: None)))
        if not _sm.SmsInitialize(b"test", b"1", self._keep(_NewClient(self._new_client)), None,
                                 accept, len(error), error):
            sys.exit(f"no session manager: {error.value.decode()}")
        if not _ice.IceListenForConnections(c.byref(count), c.byref(self._listening), len(error),
                                            error):
            sys.exit(f"no session manager: {error.value.decode()}")
        for i in range(count.value):
            _ice.IceSetHostBasedAuthProc(c.c_void_p(self._listening[i]), accept)
        _ice.IceComposeNetworkIdList.restype = c.c_char_p
        self.address = _ice.IceComposeNetworkIdList(count, self._listening).decode()
        self._listeners = {_ice.IceGetListenConnectionNumber(c.c_void_p(self._listening[i])):
                           self._listening[i] for i in range(count.value)}

    def _keep(self, callback):
        self._kept.append(callback)
        return callback

    def _new_client(self, client, _, mask, callbacks, __):
        self.client = client
        mask[0] = _ALL_CALLBACKS
        does = {0: self._register, 1: self._interact, 3: self._refuse, 5: self._saved,
                6: self._closed}
        for i, kind in enumerate(_KINDS):
            setattr(callbacks[0], f"callback{i}",
                    self._keep(kind(does.get(i, lambda *_: None))))
        return 1

    def _register(self, client, _, previous):
        if previous:
            return 0
        # The library frees it.
        _libc.strdup.restype = c.c_void_p
        _sm.SmsRegisterClientReply(c.c_void_p(client), c.c_void_p(_libc.strdup(b"client-1")))
        _sm.SmsSaveYourself(c.c_void_p(client), _SAVE_LOCAL, 0, _NO_INTERACTION, 0)
        return 1

    def _interact(self, client, *_):
        _sm.SmsInteract(c.c_void_p(client))

    def _refuse(self, *_):
        pass

    def _saved(self, client, *_):
        if self.is_ending:
            _sm.SmsDie(c.c_void_p(client))
        else:
            _sm.SmsSaveComplete(c.c_void_p(client))
            print("saved", flush=True)

    def _closed(self, *_):
        print("closed", flush=True)

    def end(self):
        self.is_ending = True
        _sm.SmsSaveYourself(c.c_void_p(self.client), _SAVE_BOTH, 1, _ANY_INTERACTION, 0)

    def run(self):
        print(self.address, flush=True)
        _ice.IceAcceptConnection.restype = c.c_void_p
        connections = {}
        while True:
            ready, _, _ = select.select([sys.stdin, *self._listeners, *connections], [], [])
            for one in ready:
                if one is sys.stdin:
                    if sys.stdin.readline().strip() != "end":
                        return
                    self.end()
                elif one in self._listeners:
                    status = c.c_int()
                    connection = _ice.IceAcceptConnection(c.c_void_p(self._listeners[one]),
                                                          c.byref(status))
                    if connection:
                        number = _ice.IceConnectionNumber(c.c_void_p(connection))
                        connections[number] = connection
                elif _ice.IceProcessMessages(c.c_void_p(connections[one]), None, None):
                    del connections[one]


if __name__ == "__main__":
    SessionManager().run()
