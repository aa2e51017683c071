"""A desktop's session manager that can do one thing: log the user out. Speaks the X session management protocol by the
system's own libraries."""

import ctypes
import ctypes.util
import os
import select
import threading

ICE = ctypes.CDLL(ctypes.util.find_library("ICE"))
SM = ctypes.CDLL(ctypes.util.find_library("SM"))

BOTH, NO_INTERACTION = 2, 0
ALL_CALLBACKS = 0x3FF

POINTER, INTEGER = ctypes.c_void_p, ctypes.c_int
CALL = ctypes.CFUNCTYPE(None, POINTER, POINTER)                    # connection, data
CALL_WITH_NUMBER = ctypes.CFUNCTYPE(None, POINTER, POINTER, INTEGER)
REGISTER = ctypes.CFUNCTYPE(INTEGER, POINTER, POINTER, POINTER)
SAVE_REQUEST = ctypes.CFUNCTYPE(None, POINTER, POINTER, INTEGER, INTEGER, INTEGER, INTEGER, INTEGER)
CLOSE = ctypes.CFUNCTYPE(None, POINTER, POINTER, INTEGER, POINTER)
SET_PROPERTIES = ctypes.CFUNCTYPE(None, POINTER, POINTER, INTEGER, POINTER)
NEW_CLIENT = ctypes.CFUNCTYPE(INTEGER, POINTER, POINTER, ctypes.POINTER(ctypes.c_ulong), POINTER, POINTER)
IO_ERROR = ctypes.CFUNCTYPE(None, POINTER)
MAY_CONNECT = ctypes.CFUNCTYPE(INTEGER, ctypes.c_char_p)

for library, name in ((ICE, "IceComposeNetworkIdList"), (ICE, "IceAcceptConnection"), (SM, "SmsGenerateClientID"),
                      (SM, "SmsGetIceConnection")):
    getattr(library, name).restype = POINTER


class Callbacks(ctypes.Structure):
    """Ten pairs of a function and its data."""
    _fields_ = [(f"{part}{i}", POINTER) for i in range(10) for part in ("function", "data")]


class SessionManager:
    """While it is there, programs started with its `address` as SESSION_MANAGER belong to the session."""

    def __init__(self):
        self.clients, self.connections = [], []
        self.asks_for_the_end = False
        self.wake, self.waker = os.pipe()
        error = ctypes.create_string_buffer(256)
        self.may_connect = MAY_CONNECT(lambda host: 1)
        self.functions = [
            REGISTER(self.register), CALL_WITH_NUMBER(lambda *_: None), CALL_WITH_NUMBER(lambda *_: None),
            SAVE_REQUEST(lambda *_: None), CALL(lambda client, _: SM.SmsSaveYourselfPhase2(POINTER(client))),
            CALL_WITH_NUMBER(self.saved), CLOSE(self.close), SET_PROPERTIES(lambda *_: None),
            SET_PROPERTIES(lambda *_: None), CALL(lambda *_: None)]
        self.new_client = NEW_CLIENT(self.welcome)
        # A killed program is no reason to end, as it is for the library.
        self.connection_lost = IO_ERROR(lambda _: None)
        ICE.IceSetIOErrorHandler(self.connection_lost)
        if not SM.SmsInitialize(b"Pirol", b"1", self.new_client, None, self.may_connect, 256, error):
            raise OSError(error.value.decode())
        count, listeners = INTEGER(), POINTER()
        if not ICE.IceListenForConnections(ctypes.byref(count), ctypes.byref(listeners), 256, error):
            raise OSError(error.value.decode())
        self.listeners = [POINTER(ctypes.cast(listeners, ctypes.POINTER(POINTER))[i]) for i in range(count.value)]
        for listener in self.listeners:
            ICE.IceSetHostBasedAuthProc(listener, self.may_connect)
        self.address = ctypes.string_at(ICE.IceComposeNetworkIdList(count, listeners)).decode()
        self.thread = threading.Thread(target=self.serve, daemon=True)
        self.thread.start()

    def log_out(self):
        """Asks all programs to save themselves and then to end."""
        os.write(self.waker, b"!")

    def serve(self):
        while True:
            waiting = {ICE.IceGetListenConnectionNumber(listener): listener for listener in self.listeners}
            talking = {ICE.IceConnectionNumber(connection): connection for connection in self.connections}
            for ready in select.select([self.wake, *waiting, *talking], [], [])[0]:
                if ready == self.wake:
                    os.read(self.wake, 1)
                    self.asks_for_the_end = True
                    for client in self.clients:
                        SM.SmsSaveYourself(client, BOTH, 1, NO_INTERACTION, 0)
                elif ready in waiting:
                    if connection := ICE.IceAcceptConnection(waiting[ready], ctypes.byref(INTEGER())):
                        self.connections.append(POINTER(connection))
                elif any(connection is talking[ready] for connection in self.connections):
                    self.process(talking[ready])

    def process(self, connection):
        if ICE.IceProcessMessages(connection, None, None) == 1:  # the other side is gone
            self.forget(connection)
            ICE.IceCloseConnection(connection)

    def forget(self, connection):
        self.connections = [other for other in self.connections if other.value != connection.value]
        self.clients = [client for client in self.clients if SM.SmsGetIceConnection(client) != connection.value]

    def welcome(self, client, _, mask, callbacks, __):
        mask[0] = ALL_CALLBACKS
        table = Callbacks.from_address(callbacks)
        for i, function in enumerate(self.functions):
            setattr(table, f"function{i}", ctypes.cast(function, POINTER))
        return 1

    def register(self, client, _, __):
        client = POINTER(client)
        SM.SmsRegisterClientReply(client, POINTER(SM.SmsGenerateClientID(client)))
        self.clients.append(client)
        SM.SmsSaveYourself(client, 1, 0, NO_INTERACTION, 0)
        return 1

    def saved(self, client, _, __):
        client = POINTER(client)
        if self.asks_for_the_end:
            SM.SmsDie(client)
        else:
            SM.SmsSaveComplete(client)

    def close(self, client, _, __, ___):
        connection = POINTER(SM.SmsGetIceConnection(POINTER(client)))
        self.forget(connection)
        SM.SmsCleanUp(POINTER(client))
        ICE.IceSetShutdownNegotiation(connection, 0)
        ICE.IceCloseConnection(connection)
