// Text can be read in both themes: a contrast of 4.5 to 1 at least, 3 to 1 for marks.
#include "SettingsTest.h"

#include <QQmlComponent>
#include <QQmlEngine>

#include <cmath>

namespace {

class ThemeTest : public SettingsTest, public testing::WithParamInterface<const char *> { };

/** Relative luminance, as the web's accessibility guidelines define it. */
double luminance(const QColor &colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
        + 0.0722 * linear(colour.blueF());
}

double contrast(const QColor &one, const QColor &other)
{
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

TEST_P(ThemeTest, HasContrast)
{
    open(QString(), {.theme = QLatin1String(GetParam())});
    QQmlEngine *const engine = qmlEngine(&window());
    QQmlComponent component(engine);
    component.setData("import QtQml; import Kvq.Settings.Controls; QtObject { property var theme: Theme }",
                      QUrl());
    const std::unique_ptr<QObject> holder(component.create());
    ASSERT_NE(holder, nullptr) << component.errorString().toStdString();
    const QObject *const theme = holder->property("theme").value<QObject *>();
    ASSERT_NE(theme, nullptr);
    const struct {
        const char *ink;
        std::initializer_list<const char *> grounds;
        double least;
    } rules[] = {
        {"text", {"window", "surface", "pressed", "accentSoft"}, 4.5},
        {"quiet", {"window", "surface", "pressed", "placeholder"}, 4.5},
        {"stale", {"window", "surface", "pressed"}, 4.5},
        {"accent", {"window", "surface", "pressed"}, 4.5},
        {"danger", {"window", "surface", "pressed", "dangerSoft"}, 4.5},
        {"accentInk", {"accent"}, 4.5},
        {"accentSoftInk", {"accentSoft"}, 4.5},
        {"dangerInk", {"danger"}, 4.5},
        {"outline", {"window", "surface"}, 3.0},
    };
    for (const auto &rule : rules) {
        for (const char *const ground : rule.grounds) {
            const double found =
                contrast(theme->property(rule.ink).value<QColor>(), theme->property(ground).value<QColor>());
            EXPECT_GE(found, rule.least) << rule.ink << " on " << ground;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Themes, ThemeTest, testing::Values("light", "dark"));

} // namespace
