#include "recurring/recurrence.h"

#include "recurring/ical_time.h"

#include <QHash>

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <thread>

namespace recurrence {

namespace {

// Steps of libical's iterator for one question; a rule that has not reached the day by then never will in
// any time that matters.
constexpr int kMostSteps = 200000;

struct Rule {
    icalrecurrencetype value;
    bool ok = false;
};

Rule parseRule(const QString& text) {
    ical_time::prepare();
    Rule r;
    const QByteArray bytes = text.toUtf8();
    icalerror_clear_errno();
    r.value = icalrecurrencetype_from_string(bytes.constData());
    r.ok = r.value.freq != ICAL_NO_RECURRENCE && icalerrno == ICAL_NO_ERROR;
    icalerror_clear_errno();
    return r;
}

// A rule whose days never come (February 30th, hourly) keeps libical's first step searching up to the year 2582:
// 18 s on this machine. So each rule's first step is taken once, in a thread of its own; a rule that has not
// answered by then, or has no first occurrence, is not expanded on the program's own thread again. The thread
// left behind ends on its own.
constexpr auto kFirstStepWait = std::chrono::milliseconds(250);

enum class FirstStep { Rings, Never, TooSlow };

FirstStep firstStep(const Rule& rule, const RecurringAlarm& alarm) {
    static QHash<QString, FirstStep> known;
    const QString key = alarm.rule + QLatin1Char(' ') + alarm.start.toString(Qt::ISODate);
    if (const auto it = known.constFind(key); it != known.constEnd())
        return *it;
    // Rules come one by one from the user: a bound that is never reached in use still keeps a script's flood small.
    if (known.size() >= 4096)
        known.clear();
    auto answer = std::make_shared<std::promise<bool>>();
    std::future<bool> found = answer->get_future();
    std::thread([value = rule.value, start = ical_time::floating(alarm.start), answer] {
        icalrecur_iterator* it = icalrecur_iterator_new(value, start);
        const bool rings = it && !icaltime_is_null_time(icalrecur_iterator_next(it));
        if (it)
            icalrecur_iterator_free(it);
        answer->set_value(rings);
    }).detach();
    const FirstStep step = found.wait_for(kFirstStepWait) != std::future_status::ready ? FirstStep::TooSlow
                           : found.get()                                               ? FirstStep::Rings
                                                                                       : FirstStep::Never;
    known.insert(key, step);
    return step;
}

// Calls visit for each occurrence from `from` on, in order, until it answers false, the series ends or the
// steps run out.
void walk(const RecurringAlarm& alarm, const QDateTime& from, const std::function<bool(const QDateTime&)>& visit) {
    const Rule rule = parseRule(alarm.rule);
    if (!rule.ok || !alarm.start.isValid() || !ruleProblem(alarm.rule).isEmpty() ||
        firstStep(rule, alarm) != FirstStep::Rings)
        return;
    icalrecur_iterator* it = icalrecur_iterator_new(rule.value, ical_time::floating(alarm.start));
    if (!it)
        return;
    // A counted series must be walked from its start; any other may begin near the day asked about.
    if (rule.value.count == 0 && from > alarm.start)
        icalrecur_iterator_set_start(it, ical_time::floating(from));
    for (int step = 0; step < kMostSteps; ++step) {
        const icaltimetype t = icalrecur_iterator_next(it);
        if (icaltime_is_null_time(t))
            break;
        const QDateTime at = ical_time::toLocal(t);
        if (!at.isValid() || at < from || alarm.skipped.contains(at))
            continue;
        if (!visit(at))
            break;
    }
    icalrecur_iterator_free(it);
}

} // namespace

QString ruleProblem(const QString& text) {
    const Rule rule = parseRule(text);
    if (!rule.ok)
        return QStringLiteral("the rule '%1' is not an iCalendar recurrence rule").arg(text);
    if (rule.value.freq == ICAL_SECONDLY_RECURRENCE || rule.value.freq == ICAL_MINUTELY_RECURRENCE)
        return QStringLiteral("the rule '%1' repeats within the hour; an alarm comes back at most hourly").arg(text);
    return {};
}

QString seriesProblem(const RecurringAlarm& alarm) {
    const QString problem = ruleProblem(alarm.rule);
    if (!problem.isEmpty() || !alarm.start.isValid())
        return problem;
    switch (firstStep(parseRule(alarm.rule), alarm)) {
    case FirstStep::Rings:
        return {};
    case FirstStep::Never:
        return QStringLiteral("the rule '%1' has no day to ring on").arg(alarm.rule);
    case FirstStep::TooSlow:
        break;
    }
    return QStringLiteral("the rule '%1' finds no day to ring on in any time an alarm could wait").arg(alarm.rule);
}

QStringList timesOn(const RecurringAlarm& alarm, const QDate& day) {
    QStringList times;
    const QDateTime from(day, QTime(0, 0));
    walk(alarm, from, [&](const QDateTime& at) {
        if (at.date() != day)
            return false;
        times.append(at.time().toString(QStringLiteral("HH:mm:ss")));
        return times.size() < kMostPerDay;
    });
    return times;
}

std::optional<QDateTime> nextAfter(const RecurringAlarm& alarm, const QDateTime& after) {
    std::optional<QDateTime> next;
    const QDateTime last = after.addYears(10);
    walk(alarm, after, [&](const QDateTime& at) {
        if (at > last)
            return false;
        if (at <= after)
            return true;
        next = at;
        return false;
    });
    return next;
}

} // namespace recurrence
