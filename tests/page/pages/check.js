// What a page that tests itself uses. Each page ends the program by done(), with 1 if anything has failed.

var failures = 0;
var checks = 0;

function check(what, isSo) {
    ++checks;
    if (isSo !== true) ++failures;
    external.console.log((isSo === true ? 'ok: ' : 'FAILED: ') + what);
}

function same(what, actual, expected) {
    check(what + (actual === expected ? '' : ': ' + actual + ' instead of ' + expected), actual === expected);
}

// The number of what a function throws, as native calls report a status; null when nothing is thrown.
function thrownBy(action) {
    try {
        action();
    } catch (e) {
        return typeof e.number === 'number' ? e.number >>> 0 : String(e);
    }
    return null;
}

function done() {
    external.console.log('checks: ' + checks);
    external.window.quit(failures ? 1 : 0);
}

// Looks until it is so, or for ten seconds.
function until(condition, then) {
    var left = 500;
    (function look() {
        if (condition() || --left === 0) then();
        else setTimeout(look, 20);
    })();
}

window.onerror = function (message, source, line) {
    check('no error: ' + message + ' at line ' + line, false);
    done();
};
