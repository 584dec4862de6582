// sample_bench PICTURE ROUNDS   times the redraw of the sample picture while a slider moves
//
// Beside it, in turns, the toolkit scales the same picture smoothly to half its size. Prints its
// findings as JSON.

#include "ColorTransform.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

namespace
{
[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "sample_bench: %s\n", what);
    std::exit(1);
}

/** Milliseconds on the wall, and of the processor. */
struct Times {
    std::vector<double> wall;
    std::vector<double> processor;
};

double now(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

template <typename Action> void measure(Times &times, Action action)
{
    const double wall = now(CLOCK_MONOTONIC);
    const double processor = now(CLOCK_THREAD_CPUTIME_ID);
    action();
    times.processor.push_back(now(CLOCK_THREAD_CPUTIME_ID) - processor);
    times.wall.push_back(now(CLOCK_MONOTONIC) - wall);
}

/** All four sliders on their way from one end to the other. */
ColorAdjustment adjustmentAt(int round)
{
    const int step = round % 101;
    return {2 * step, 20 * std::max(1, step), 7 * step - 350, 200 - 2 * step};
}

void print(const char *name, Times &times, const char *end)
{
    std::sort(times.wall.begin(), times.wall.end());
    const double processor = *std::max_element(times.processor.begin(), times.processor.end());
    std::printf("\"%s\": {\"median\": %.4f, \"least\": %.4f, \"most\": %.4f, "
                "\"processor\": %.4f}%s",
                name, times.wall[times.wall.size() / 2], times.wall.front(), times.wall.back(),
                processor, end);
}

void bench(const QImage &picture, int rounds)
{
    const QSize half = picture.size() / 2;
    QImage window(picture.size(), QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&window);
    Times transforms;
    Times redraws;
    Times peers;
    for (int round = 0; round < rounds; ++round) {
        const ColorAdjustment adjustment = adjustmentAt(round);
        QImage result;
        measure(transforms, [&] { result = ColorTransform::adjusted(picture, adjustment); });
        measure(redraws, [&] {
            result = ColorTransform::adjusted(picture, adjustment);
            painter.drawPixmap(0, 0, QPixmap::fromImage(result));
        });
        measure(peers, [&] {
            result = picture.scaled(half, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        });
    }
    std::printf("{\"width\": %d, \"height\": %d, ", picture.width(), picture.height());
    print("transform", transforms, ", ");
    print("redraw", redraws, ", ");
    print("scaled", peers, "}\n");
}
} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QImage picture = QImage(arguments.value(1)).convertToFormat(QImage::Format_RGB32);
    const int rounds = arguments.value(2).toInt();
    if (picture.isNull() || rounds <= 0)
        fail("usage: sample_bench PICTURE ROUNDS");
    bench(picture, rounds);
    return 0;
}
