// Runs the example of a page, and goes on to that of the next one.
var example, expected, nextPage, hasRun = false;

function begin(of, comparisons, next) {
    example = of;
    expected = comparisons;
    nextPage = next;
    external.window.title = of;
    external.window.show(true);
}

// Comparisons may stand in functions that are called later.
function ended() {
    hasRun = true;
    until(function () { return checks >= expected; }, function () {
        check(example + ' makes its ' + expected + ' comparisons', checks === expected);
        goOn();
    });
}

function goOn() {
    if (nextPage) location.href = nextPage;
    else done();
}

window.onerror = function (message, source, line) {
    check(example + ': ' + message + ' at line ' + line, false);
    if (!hasRun) goOn();
};
