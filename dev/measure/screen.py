"""A virtual X server, and what happens on it: windows that are mapped, a pointer that moves. The X libraries are
called directly: they come with the server's tools, and a program per look would cost more than what is measured."""
import ctypes
import select
import shutil
import subprocess
import time

from measure.programs import Failed

MAP_NOTIFY, UNMAP_NOTIFY, CLIENT_MESSAGE = 19, 18, 33
SUBSTRUCTURE_NOTIFY = 1 << 19
LEAST_SIDE = 50  # smaller windows are not for people


class MapEvent(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("event", ctypes.c_ulong), ("window", ctypes.c_ulong),
                ("override_redirect", ctypes.c_int)]


class ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5)]


class Event(ctypes.Union):
    _fields_ = [("type", ctypes.c_int), ("map", MapEvent), ("client", ClientMessage), ("pad", ctypes.c_long * 24)]


HANDLER = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)
_ignore = HANDLER(lambda display, error: 0)  # a window may be gone before it is asked about


def libraries():
    """The two X libraries, or None where one is missing."""
    try:
        x, test = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXtst.so.6")
    except OSError:
        return None
    for name, kind in (("XOpenDisplay", ctypes.c_void_p), ("XDefaultRootWindow", ctypes.c_ulong),
                       ("XInternAtom", ctypes.c_ulong)):
        getattr(x, name).restype = kind
    x.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
    x.XSetErrorHandler(_ignore)
    return x, test


def why_none():
    """Why there can be no screen; empty where there can."""
    if not shutil.which("Xvfb"):
        return "Xvfb is not installed"
    return "" if libraries() else "libX11 or libXtst is not installed"


class Screen:
    """The server and one connection to it, until it is closed."""

    def __init__(self, size="2600x1600x24"):
        command = ["Xvfb", "-displayfd", "1", "-screen", "0", size, "-nolisten", "tcp", "-noreset"]
        self.server = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.name = ":" + self.server.stdout.readline().decode().strip()
        self.x, self.test = libraries()
        self.display = ctypes.c_void_p(self.x.XOpenDisplay(self.name.encode()))
        if not self.display:
            self.close()
            raise Failed("Xvfb does not start")
        self.root = self.x.XDefaultRootWindow(self.display)
        self.x.XSelectInput(self.display, ctypes.c_ulong(self.root), ctypes.c_long(SUBSTRUCTURE_NOTIFY))
        self.x.XSync(self.display, 0)

    def close(self):
        if self.display:
            self.x.XCloseDisplay(self.display)
        self.server.terminate()
        self.server.wait()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def _is_real(self, event):
        if event.override_redirect:
            return False
        place, sizes = (ctypes.c_int * 2)(), (ctypes.c_uint * 4)()
        root = ctypes.c_ulong()
        size = ctypes.sizeof(ctypes.c_int)
        at = [ctypes.byref(place, 0), ctypes.byref(place, size), *(ctypes.byref(sizes, i * size) for i in range(4))]
        told = self.x.XGetGeometry(self.display, ctypes.c_ulong(event.window), ctypes.byref(root), *at)
        return bool(told) and min(sizes[0], sizes[1]) >= LEAST_SIDE

    def wait_for(self, kind, seconds=20, window=None):
        """(moment, window) of the next event of this kind, of any real window or of a certain one; None where it
        does not come."""
        event, until = Event(), time.perf_counter() + seconds
        while True:
            while self.x.XPending(self.display):
                self.x.XNextEvent(self.display, ctypes.byref(event))
                moment = time.perf_counter()
                if event.type != kind or (window and event.map.window != window):
                    continue
                if kind != MAP_NOTIFY or self._is_real(event.map):
                    return moment, event.map.window
            left = until - time.perf_counter()
            if left <= 0:
                return None
            select.select([self.x.XConnectionNumber(self.display)], [], [], left)

    def forget(self):
        """Drops what has happened until now."""
        event = Event()
        self.x.XSync(self.display, 0)
        while self.x.XPending(self.display):
            self.x.XNextEvent(self.display, ctypes.byref(event))

    def ask_to_close(self, window):
        event = Event()
        message = event.client
        message.type, message.window, message.format = CLIENT_MESSAGE, window, 32
        message.message_type = self.x.XInternAtom(self.display, b"WM_PROTOCOLS", 0)
        message.data[0] = self.x.XInternAtom(self.display, b"WM_DELETE_WINDOW", 0)
        self.x.XSendEvent(self.display, ctypes.c_ulong(window), 0, ctypes.c_long(0), ctypes.byref(event))
        self.x.XFlush(self.display)

    def point(self, x, y):
        self.test.XTestFakeMotionEvent(self.display, -1, int(x), int(y), ctypes.c_ulong(0))
        self.x.XFlush(self.display)

    def button(self, down):
        self.test.XTestFakeButtonEvent(self.display, 1, int(down), ctypes.c_ulong(0))
        self.x.XFlush(self.display)
