// What the painting of the interface costs: the program's icon, plates, materials, and finding fonts.

#include "iconart/Material.h"
#include "iconart/Plate.h"
#include "iconart/ZelmoIconFactory.h"
#include "platform/linux/fonts/FontconfigFaces.h"
#include "preferences/Preferences.h"
#include "preferences/PreferencesStorage.h"
#include "ui/FontResolver.h"
#include "ui/PlateCache.h"

#include <QGuiApplication>
#include <QQuickWindow>

#include <benchmark/benchmark.h>

using namespace zelmo;

namespace {

class NoPreferences : public PreferencesStorage {
public:
    PreferenceValues read() override { return {}; }
    bool write(const PreferenceValues&) override { return true; }
    void setOutsideChangeHandler(std::function<void()>) override {}
};

// A card's plate as it is while the card is selected.
PlateStyle cardPlate() {
    return {.radius = 24,
            .fill = {{QColor(51, 211, 158, 60), QColor(80, 143, 255, 60)}, GradientDirection::down},
            .stroke = {{QColor(255, 255, 255, 50)}},
            .strokeWidth = 1,
            .shadow = {.opacity = 0.2, .radius = 12, .offset = 6}};
}

// At 256 points and two pixels to the point.
void iconInStyle(benchmark::State& state) {
    NoPreferences storage;
    const Preferences preferences(storage);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            ZelmoIconFactory::appIcon(256, preferences, static_cast<AppIconStyle>(state.range(0))));
}
BENCHMARK(iconInStyle)->DenseRange(0, appIconStyleCount - 1)->Unit(benchmark::kMillisecond);

void firstPlate(benchmark::State& state) {
    const PlateStyle style = cardPlate();
    for (auto _ : state)
        benchmark::DoNotOptimize(paintPlate({154, 204}, 1, style));
}
BENCHMARK(firstPlate)->Unit(benchmark::kMicrosecond);

void cachedPlate(benchmark::State& state) {
    QQuickWindow window;
    PlateCache& cache = PlateCache::of(window);
    const PlateStyle style = cardPlate();
    cache.picture({154, 204}, 1, style);
    for (auto _ : state)
        benchmark::DoNotOptimize(cache.picture({154, 204}, 1, style));
}
BENCHMARK(cachedPlate);

// Of the wall's panel on a screen of 1920 points.
void panelShadow(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(plateShadow({1440, 229}, 32, {.opacity = 0.14, .radius = 24, .offset = 10}));
}
BENCHMARK(panelShadow)->Unit(benchmark::kMicrosecond);

// Of a whole screen of so many pixels to the point.
void materialOfAScreen(benchmark::State& state) {
    const auto scale = static_cast<int>(state.range(0));
    QImage screen(QSize(1920, 1080) * scale, QImage::Format_RGB32);
    for (int y = 0; y < screen.height(); ++y)
        std::fill_n(reinterpret_cast<QRgb*>(screen.scanLine(y)), screen.width(), qRgb(y % 256, y * 7 % 256, 90));
    for (auto _ : state)
        benchmark::DoNotOptimize(throughMaterial(screen, scale, MaterialStyle::ultraThin()));
}
BENCHMARK(materialOfAScreen)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

// Of a style whose own fonts are all missing, so that every name is asked for, and the system's family as well.
void coldFont(benchmark::State& state) {
    const FontconfigFaces faces({});
    for (auto _ : state) {
        FontResolver resolver(faces);
        benchmark::DoNotOptimize(resolver.font(LauncherFontStyle::avenirNext, 17, FontWeight::semibold));
    }
}
BENCHMARK(coldFont)->Unit(benchmark::kMicrosecond);

void cachedFont(benchmark::State& state) {
    const FontconfigFaces faces({});
    FontResolver resolver(faces);
    resolver.font(LauncherFontStyle::avenirNext, 17, FontWeight::semibold);
    for (auto _ : state)
        benchmark::DoNotOptimize(resolver.font(LauncherFontStyle::avenirNext, 17, FontWeight::semibold));
}
BENCHMARK(cachedFont);

} // namespace

int main(int argc, char* argv[]) {
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
