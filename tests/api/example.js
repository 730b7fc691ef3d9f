// Runs the example of a page, and continues with the next page.
var example, expected, nextPage, hasRun = false;

function begin(of, comparisons, next) {
    example = of;
    expected = comparisons;
    nextPage = next;
    external.window.title = of;
    external.window.show(true);
}

// Waits for all comparisons: some are in functions that are called later.
function ended() {
    hasRun = true;
    until(function () { return checks >= expected; }, function () {
        check(example + ' makes its ' + expected + ' comparisons', checks === expected);
        showNext();
    });
}

function showNext() {
    if (nextPage) location.href = nextPage;
    else done();
}

window.onerror = function (message, source, line) {
    check(example + ': ' + message + ' at line ' + line, false);
    if (!hasRun) showNext();
};
