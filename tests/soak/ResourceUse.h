#pragma once

#include <QString>

#include <optional>

namespace zelmo::test {

// What a process has of the machine, by what the kernel says.
struct ResourceUse {
    double memory = 0; // of its own, in MiB
    qsizetype descriptors = 0;
    qsizetype threads = 0;
    double processorMilliseconds = 0; // of the threads that live, since each began

    static ResourceUse of(qint64 process);
};

// Compares what a process has at the beginning and at the end of the same work done many times. One for each kind of
// work; prints a row of a Markdown table that says what it saw.
class FlatUse {
public:
    explicit FlatUse(qint64 process);

    // Once, about halfway.
    void noteMiddle();
    // Nothing when neither memory nor descriptors nor threads have grown, or what has.
    QString growthAfter(const char* work, int times);

    // The allocator and the pictures of cards make up to a third of this between one look and the next. What adds up
    // is seen from 200 bytes each time when the work is done 10,000 times.
    static constexpr double memoryMargin = 2;
    // Threads that decode icons or scan end when they have had no work for a while, and come again.
    static constexpr qsizetype threadMargin = 4;

private:
    qint64 m_process;
    ResourceUse m_begin;
    double m_middleMemory = 0;
    qint64 m_startedAt;
};

// The same for rounds of one test, of which the first sets up what the others use again.
class FlatRounds {
public:
    FlatRounds(qint64 process, int count) : m_process(process), m_count(count) {}

    int count() const { return m_count; }
    // At the end of each round.
    void note();
    // As above; nothing also where there were not enough rounds to tell.
    QString growth();

private:
    qint64 m_process;
    int m_count;
    int m_done = 0;
    std::optional<FlatUse> m_use;
};

} // namespace zelmo::test
