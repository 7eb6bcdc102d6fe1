"""A plug-in of Krita: offers the foreground color to Chromalog and sets what OK returns."""
from krita import Extension, Krita, ManagedColor
from PyQt5.QtCore import QEventLoop, QProcess
from PyQt5.QtGui import QColor
from PyQt5.QtWidgets import QMessageBox


class Chromalog(Extension):
    def __init__(self, parent):
        super().__init__(parent)
        self.process = None

    def setup(self):
        pass

    def createActions(self, window):
        action = window.createAction("chromalog_foreground", "Chromalog…", "tools/scripts")
        action.triggered.connect(self.pick)

    def pick(self):
        window = Krita.instance().activeWindow()
        view = window.activeView() if window else None
        if self.process or not view or not view.document():
            return  # it is open already, or there is no image whose colors could be meant
        offered = view.foregroundColor().colorForCanvas(view.canvas()).name()
        code, said, errors = self.run(["--color", offered])
        if code == 0:
            view.setForeGroundColor(ManagedColor.fromQColor(QColor(said), view.canvas()))
        elif code != 1:
            QMessageBox.warning(window.qwindow(), "Chromalog", errors or f"chromalog ended with {code}")

    def run(self, options):
        """Exit code and what was printed; Krita goes on painting meanwhile."""
        self.process = QProcess()
        loop = QEventLoop()
        self.process.finished.connect(loop.quit)
        self.process.errorOccurred.connect(loop.quit)
        self.process.start("chromalog", options)
        if self.process.state() != QProcess.NotRunning:
            loop.exec()
        done, self.process = self.process, None
        if done.error() == QProcess.FailedToStart:
            return 2, "", f"chromalog cannot be started: {done.errorString()}"
        said = bytes(done.readAllStandardOutput()).decode()
        return done.exitCode(), said.strip(), bytes(done.readAllStandardError()).decode().strip()


Krita.instance().addExtension(Chromalog(Krita.instance()))
