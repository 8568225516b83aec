#pragma once

#include <QString>

#include <algorithm>
#include <chrono>
#include <vector>

namespace zelmo::bench {

inline double milliseconds(std::chrono::steady_clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

// Median, minimum and maximum of one figure.
class Figure {
public:
    void add(double value) { m_values.push_back(value); }
    QString text(int decimals = 0) {
        if (m_values.empty())
            return QStringLiteral("-");
        std::sort(m_values.begin(), m_values.end());
        const auto number = [&](double value) { return QString::number(value, 'f', decimals); };
        return QStringLiteral("%1 (%2-%3)")
            .arg(number(m_values[m_values.size() / 2]), number(m_values.front()), number(m_values.back()));
    }

private:
    std::vector<double> m_values;
};

} // namespace zelmo::bench
