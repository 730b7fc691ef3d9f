// Shows the window at (200, 150), 400 pixels wide and 300 high, without a frame, so that tests know where things are.

var log = function (text) { external.console.log(text); };

window.onerror = function (message, source, line) { log('error: ' + message + ' at line ' + line); };
window.onunhandledrejection = function (event) { log('rejection: ' + event.reason); };

var show = function () {
    var w = external.window;
    w.caption = false;
    w.setWindowPos(200, 150, 400, 300);
    w.show(true);
    log('shown');
};
