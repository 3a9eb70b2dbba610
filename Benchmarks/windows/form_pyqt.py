"""The same form in Python, with the toolkit's bindings."""
import sys
import time

from PyQt6.QtWidgets import QApplication, QCheckBox, QLabel, QLineEdit, QMainWindow, QPushButton, QWidget

ROWS, ROW_HEIGHT, RESIZES = 250, 26, 20


class Content(QWidget):
    def __init__(self):
        super().__init__()
        self.rows = []
        self.pressed_count = 0
        for row in range(ROWS):
            y = row * ROW_HEIGHT
            label = QLabel(f"Label {row}", self)
            label.setGeometry(4, y, 120, 22)
            field = QLineEdit(f"Text {row}", self)
            field.setGeometry(130, y, 200, 22)
            check = QCheckBox(f"Option {row}", self)
            check.setGeometry(340, y, 120, 22)
            button = QPushButton(f"Button {row}", self)
            button.setGeometry(470, y, 120, 22)
            field.returnPressed.connect(self.pressed)
            check.clicked.connect(self.pressed)
            button.clicked.connect(self.pressed)
            self.rows.append((field, check, button))

    def pressed(self, *_):
        self.pressed_count += 1

    def resizeEvent(self, _):
        more = self.width() - 600
        for row, (field, check, button) in enumerate(self.rows):
            y = row * ROW_HEIGHT
            field.setGeometry(130, y, 200 + more, 22)
            check.setGeometry(340 + more, y, 120, 22)
            button.setGeometry(470 + more, y, 120, 22)


def resident():
    with open("/proc/self/status") as status:
        return next(int(line.split()[1]) for line in status if line.startswith("VmRSS:"))


def main():
    application = QApplication(sys.argv)
    before, begin = resident(), time.process_time()

    def end(name):
        nonlocal begin
        print(f"{name} {time.process_time() - begin:.6f}")
        begin = time.process_time()

    def settle():
        application.processEvents()
        application.sendPostedEvents()
        application.processEvents()

    window = QMainWindow()
    window.setCentralWidget(Content())
    window.resize(600, ROWS * ROW_HEIGHT)
    end("made")
    window.show()
    settle()
    end("shown")
    for i in range(RESIZES):
        window.resize(600 + 10 * i, ROWS * ROW_HEIGHT)
        settle()
    end("resized")
    print(f"memory {resident() - before}")
    window.close()
    del window
    settle()
    end("closed")


main()
