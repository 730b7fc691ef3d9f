self.postMessage && self.postMessage('started');
