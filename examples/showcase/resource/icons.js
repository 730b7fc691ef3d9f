// An icon for each plug-in: SVG paths in a view box of 24 by 24.
Showcase.icon = (function () {
  var paths = {
    start: 'M4 11l8-7 8 7M6 10v10h12V10M10 20v-6h4v6',
    window: 'M3 5h18v14H3zM3 9h18M6 7h.01M9 7h.01',
    windows: 'M3 8h12v11H3zM8 8V4h13v11h-6M3 11h12',
    dialogs: 'M3 4h18v12h-9l-5 4v-4H3zM8 9h8M8 12h5',
    messages: 'M3 6h18v12H3zM3 7l9 6 9-6',
    menu: 'M4 4h9v16H4zM7 8h3M7 12h3M13 10h7v8h-7M15 14h3',
    tray: 'M3 18h18M12 4c-4 3-5 6-4 10h8c1-4 0-7-4-10zM12 14v3',
    hotkey: 'M3 6h18v12H3zM7 10h.01M11 10h.01M15 10h.01M17 14h.01M8 14h6',
    mouse: 'M7 9a5 5 0 0 1 10 0v6a5 5 0 0 1-10 0zM12 4v5M7 10h10',
    dragfile: 'M12 3v11M8 10l4 4 4-4M4 15v5h16v-5',
    console: 'M3 5h18v14H3zM7 9l3 3-3 3M12 15h5',
    file: 'M6 3h8l4 4v14H6zM14 3v4h4M9 12h6M9 16h6',
    fileIO: 'M6 3h8l4 4v14H6zM14 3v4h4M12 11v6M10 15l2 2 2-2',
    stream: 'M3 7c4-3 6 3 10 0s4-1 8 0M3 12c4-3 6 3 10 0s4-1 8 0M3 17c4-3 6 3 10 0s4-1 8 0',
    minizip: 'M5 3h14v18H5zM12 3v2M12 7v2M12 11v2M10 15h4v4h-4z',
    pack: 'M3 8l9-5 9 5v8l-9 5-9-5zM3 8l9 5 9-5M12 13v8',
    hash: 'M9 4L7 20M17 4l-2 16M4 9h16M4 15h16',
    system: 'M4 4h16v11H4zM9 20h6M12 15v5',
    processes: 'M4 4h7v7H4zM13 13h7v7h-7zM15 7h5M4 17h5',
    registry: 'M8 14a4 4 0 1 1 3-3l9 9M16 16l3-3M13 13l2-2',
    config: 'M4 7h9M17 7h3M4 17h3M11 17h9M15 5v4M9 15v4',
    http: 'M12 3a9 9 0 1 0 0 18a9 9 0 1 0 0-18M3 12h18M12 3c-5 5-5 13 0 18c5-5 5-13 0-18',
    ga: 'M4 20V4M4 20h16M8 16v-4M12 16V8M16 16v-6'
  };
  return function (name) {
    var space = 'http://www.w3.org/2000/svg';
    var svg = document.createElementNS(space, 'svg');
    var path = document.createElementNS(space, 'path');
    svg.setAttribute('viewBox', '0 0 24 24');
    svg.setAttribute('class', 'icon');
    path.setAttribute('d', paths[name] || paths.start);
    svg.appendChild(path);
    return svg;
  };
})();
