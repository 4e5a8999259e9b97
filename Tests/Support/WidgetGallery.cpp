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
    const auto add = [&grid](auto *control, const QString &accessibleName = {}) {
        control->setAccessibleName(accessibleName);
        grid.addWidget(control, grid.count() / 3, grid.count() % 3);
        return control;
    };
    auto *button = add(new QPushButton(u"Export"_s));
    button->setAccessibleDescription(u"Writes the photo"_s);
    QObject::connect(button, &QPushButton::clicked, button, [] { say(u"clicked Export"_s); });
    auto *box = add(new QCheckBox(u"Lens Profile"_s));
    QObject::connect(box, &QCheckBox::toggled, box, [](bool isOn) { say(u"toggled %1"_s.arg(isOn)); });
    auto *field = add(new QLineEdit);
    field->setPlaceholderText(u"Keyword"_s);
    QObject::connect(field, &QLineEdit::textChanged, field,
                     [](const QString &text) { say("field "_L1 + text); });
    add(new QPlainTextEdit(u"Caption of the photo"_s), u"Caption"_s);
    auto *slider = add(new QSlider(Qt::Horizontal), u"Contrast"_s);
    slider->setRange(-100, 100);
    QObject::connect(slider, &QSlider::valueChanged, slider,
                     [](int value) { say(u"slider %1"_s.arg(value)); });
    add(new QLabel(u"Sunset.jpg"_s));
    add(new QComboBox, u"Format"_s)->addItems({u"JPEG"_s, u"TIFF"_s});
    add(new QComboBox, u"Size"_s)->setEditable(true);
    add(new QSpinBox, u"Quality"_s);
    add(new QPushButton(u"Hidden"_s))->hide();
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
