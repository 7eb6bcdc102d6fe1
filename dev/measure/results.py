"""Arithmetic on measured operations: medians, ratios, verdicts, and what became slower. Nothing here measures.

Results are one dict, as stored with --json:
  when, load (before and after: three numbers each), processors, rounds,
  operations: a list of
    operation, group  names
    unit              "ns", "kB" or "frames"
    ours              one sample a round; null where it could not be measured
    bound             what the median may be, or null
    beside            a list of {kind: limit|plain|peer, what, samples (null: not installed), bound, goal}
"""
import statistics

OK, SHORT, MISSING = "ok", "short", "not installed"
LEAST_CHANGE = 1.05  # less is noise, whatever the samples say


def median(samples):
    return statistics.median(samples)


def quartiles(samples):
    if len(samples) < 2:
        return samples[0], samples[0]
    first, _, third = statistics.quantiles(samples, n=4, method="inclusive")
    return first, third


def ratios(ours, other):
    """Round by round, so that a load that comes and goes falls on both; zeros cannot be compared."""
    return [a / b for a, b in zip(ours, other) if b > 0]


def ratio(ours, other):
    each = ratios(ours, other)
    return median(each) if each else None


def held(value, bound):
    """A verdict: none without a bound or a value."""
    if bound is None or value is None:
        return ""
    return OK if value <= bound else SHORT


def verdicts(operation):
    """One line each: {beside (null: the operation alone), value, bound, goal, verdict}."""
    ours, lines = operation["ours"], []
    if operation.get("bound") is not None or not operation["beside"]:
        value = median(ours) if ours else None
        lines.append({"beside": None, "value": value, "bound": operation.get("bound"), "goal": None,
                      "verdict": held(value, operation.get("bound"))})
    for other in operation["beside"]:
        value = ratio(ours, other["samples"]) if ours and other["samples"] else None
        verdict = MISSING if other["samples"] is None else held(value, other.get("bound"))
        lines.append({"beside": other, "value": value, "bound": other.get("bound"), "goal": other.get("goal"),
                      "verdict": verdict})
    return lines


def short(results):
    """(operation, line) of every bound that is not held."""
    return [(operation, line) for operation in results["operations"] for line in verdicts(operation)
            if line["verdict"] == SHORT]


def grew(new, old):
    """By which factor the median grew beyond the noise; None where it did not: by 5 % at least, and so that the
    middle halves of the samples lie apart."""
    factor = median(new) / median(old) if median(old) > 0 else 0
    apart = quartiles(new)[0] > quartiles(old)[1]
    return factor if apart and factor > LEAST_CHANGE else None


def ratio_pairs(new, old):
    """(ratios now, ratios before) to all that was measured beside the operation in both runs."""
    before = {other["what"]: other["samples"] for other in old["beside"] if other["samples"]}
    return [(ratios(new["ours"], other["samples"]), ratios(old["ours"], before[other["what"]]))
            for other in new["beside"] if other["samples"] and other["what"] in before]


def slower(new, old):
    """(name, factor) of what became slower beyond the noise. A busier machine alone makes nothing slower: the
    ratios to all that was measured beside it must have grown too."""
    before = {operation["operation"]: operation for operation in old["operations"]}
    found = []
    for operation in new["operations"]:
        earlier = before.get(operation["operation"])
        if not earlier or not operation["ours"] or not earlier["ours"]:
            continue
        pairs = [(operation["ours"], earlier["ours"]), *ratio_pairs(operation, earlier)]
        factors = [grew(*pair) for pair in pairs]
        if all(factors):
            found.append((operation["operation"], min(factors)))
    return found


def busier(new, old):
    """The loads before and now, where the machine has clearly more to do than it had: times by the clock grow then."""
    loads = [sum(load[0] for load in results["load"]) / 2 for results in (old, new)]
    return loads if loads[1] > loads[0] + new["processors"] / 2 else None
