// What a user of the scheme editor waits for: the preview after a keystroke, and the window with many schemes.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>

#include "qt/BrevisUI_StylesDlg.h"
#include "qt/BrevisUI_SystemDialogs.h"

namespace {

using namespace BrevisUI;

// A store of so many schemes that live in memory only.
PropertySetStore storeOf(int count) {
    PropertySetStore store;
    for (int i = 0; i < count; ++i) {
        Brevis::PropertySet scheme("Scheme " + std::to_string(i));
        scheme.setBool("LINE_WRAP", true);
        store.insert(scheme);
    }
    return store;
}

struct Editor {
    explicit Editor(int schemes) : store(storeOf(schemes)) {}

    PropertySetStore store;
    SettingsFile settings{""};
    EditorMemory memory;
    SystemDialogs dialogs;
};

// The window from its making until it is drawn.
void openEditor(benchmark::State& state) {
    Editor editor(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        StylesDlg dlg(editor.store, editor.settings, editor.memory, editor.dialogs);
        dlg.show();
        QApplication::processEvents();
        benchmark::DoNotOptimize(dlg.grab());
    }
}
BENCHMARK(openEditor)->Arg(3)->Arg(500)->Unit(benchmark::kMillisecond);

// A change on each page, formatted and drawn. The sample of the last page is the largest.
void changeValue(benchmark::State& state) {
    constexpr const char* keys[] = {"GLOBAL_WS_BEFORE_OPEN_BRACE", "WS_BEFORE_CS_OPEN_BRACE", "RIGHT_MARGIN"};
    Editor editor(3);
    StylesDlg dlg(editor.store, editor.settings, editor.memory, editor.dialogs);
    dlg.show();
    dlg.showProperty(keys[state.range(0)]);
    auto* const edit = dlg.findChild<QWidget*>(QLatin1String(keys[state.range(0)]));
    bool isUp = false;
    for (auto _ : state) {
        isUp = !isUp;
        QKeyEvent press(QEvent::KeyPress, isUp ? Qt::Key_Up : Qt::Key_Down, Qt::NoModifier);
        QKeyEvent text(QEvent::KeyPress, isUp ? Qt::Key_Space : Qt::Key_Backspace, Qt::NoModifier,
                       isUp ? QStringLiteral(" ") : QString());
        QApplication::sendEvent(edit, state.range(0) == 2 ? &press : &text);
        QApplication::processEvents();
    }
    state.SetLabel(keys[state.range(0)]);
}
BENCHMARK(changeValue)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
