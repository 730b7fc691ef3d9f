Showcase.add({
  title: 'Mouse',
  icon: 'mouse',
  group: 'Desktop',
  plugins: ['mouse'],
  intro: 'The plug-in "mouse" reads and moves the mouse pointer of the whole desktop, and clicks.',
  examples: [
    {
      title: 'Position',
      text: 'In pixels of the screen, also outside the window.',
      button: 'Follow it for five seconds',
      run: function (say, card) {
        var mouse = window.external.mouse;
        var line = Showcase.line(card);
        var left = 50;
        var timer = setInterval(function () {
          var down = mouse.isBtnDown();
          line.textContent = mouse.x + ', ' + mouse.y +
              (down ? ', pressed' : '');
          if (--left === 0) clearInterval(timer);
        }, 100);
      }
    },
    {
      title: 'Move it',
      text: 'Setting x keeps y, and setting y keeps x.',
      button: 'Draw a circle',
      run: function () {
        var mouse = window.external.mouse;
        var x = mouse.x - 60, y = mouse.y;
        var step = 0;
        var timer = setInterval(function () {
          var angle = ++step * Math.PI / 36;
          mouse.x = x + 60 * Math.cos(angle);
          mouse.y = y + 60 * Math.sin(angle);
          if (step === 72) clearInterval(timer);
        }, 15);
      }
    },
    {
      title: 'Click',
      text: 'For all programs, and for the page itself, this click looks like one by the user.',
      button: 'Click with the right button',
      run: function (say) {
        var mouse = window.external.mouse;
        document.onmouseup = function (event) {
          say('The page received button ' + event.button);
          document.onmouseup = null;
        };
        say('Clicked: ' + mouse.click(mouse.RBTN));
      }
    }
  ]
});
