// widget_gallery [CONTROLS]: a window of ordinary controls for whoever drives other programs' windows. Says
// on standard output what was done to them, one line each. With a number it shows so many more controls.

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

void say(const QString &line)
{
    std::fprintf(stdout, "%s\n", line.toUtf8().constData());
    std::fflush(stdout);
}

void addControls(QGridLayout &grid)
{
    auto *button = new QPushButton(u"Export"_s);
    button->setAccessibleDescription(u"Writes the photo"_s);
    QObject::connect(button, &QPushButton::clicked, button, [] { say(u"clicked Export"_s); });
    grid.addWidget(button, 0, 0);
    auto *box = new QCheckBox(u"Lens Profile"_s);
    QObject::connect(box, &QCheckBox::toggled, box, [](bool isOn) { say(u"toggled %1"_s.arg(isOn)); });
    grid.addWidget(box, 0, 1);
    auto *field = new QLineEdit;
    field->setPlaceholderText(u"Keyword"_s);
    QObject::connect(field, &QLineEdit::textChanged, field,
                     [](const QString &text) { say("field "_L1 + text); });
    grid.addWidget(field, 0, 2);
    auto *editor = new QPlainTextEdit(u"Caption of the photo"_s);
    editor->setAccessibleName(u"Caption"_s);
    grid.addWidget(editor, 1, 0);
    auto *slider = new QSlider(Qt::Horizontal);
    slider->setRange(-100, 100);
    slider->setAccessibleName(u"Contrast"_s);
    QObject::connect(slider, &QSlider::valueChanged, slider,
                     [](int value) { say(u"slider %1"_s.arg(value)); });
    grid.addWidget(slider, 1, 1);
    grid.addWidget(new QLabel(u"Sunset.jpg"_s), 1, 2);
    auto *choice = new QComboBox;
    choice->addItems({u"JPEG"_s, u"TIFF"_s});
    choice->setAccessibleName(u"Format"_s);
    grid.addWidget(choice, 2, 0);
    auto *size = new QComboBox;
    size->setEditable(true);
    size->setAccessibleName(u"Size"_s);
    grid.addWidget(size, 2, 1);
    auto *quality = new QSpinBox;
    quality->setAccessibleName(u"Quality"_s);
    grid.addWidget(quality, 2, 2);
    auto *hidden = new QPushButton(u"Hidden"_s);
    grid.addWidget(hidden, 3, 0);
    hidden->hide();
}

/// Controls of the usual mixture, in panels of sixteen.
void addMore(QGridLayout &grid, int count)
{
    QGridLayout *panel = nullptr;
    for (int i = 0; i < count; ++i) {
        if (i % 16 == 0) {
            auto *frame = new QWidget;
            panel = new QGridLayout(frame);
            grid.addWidget(frame, 4 + i / 64, i / 16 % 4);
        }
        const QString name = u"Control %1"_s.arg(i);
        auto *control = i % 4 == 0   ? static_cast<QWidget *>(new QPushButton(name))
                        : i % 4 == 1 ? static_cast<QWidget *>(new QLabel(name))
                        : i % 4 == 2 ? static_cast<QWidget *>(new QCheckBox(name))
                                     : static_cast<QWidget *>(new QSlider(Qt::Horizontal));
        control->setAccessibleName(name);
        panel->addWidget(control, i / 4 % 4, i % 4);
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle(u"Gallery"_s);
    window.menuBar()->addMenu(u"&File"_s)->addAction(u"Plug-in &Manager..."_s, &window, [] {
        say(u"manager"_s);
    });
    auto *menu = window.menuBar()->addMenu(u"&Library"_s)->addMenu(u"Plug-in &Extras"_s);
    menu->addAction(u"&KelvaLR Status"_s, &window, [] { say(u"menu"_s); });
    auto *controls = new QWidget;
    auto *grid = new QGridLayout(controls);
    addControls(*grid);
    addMore(*grid, QApplication::arguments().value(1).toInt());
    window.setCentralWidget(controls);
    window.show();
    say(u"ready"_s);
    return QApplication::exec();
}
