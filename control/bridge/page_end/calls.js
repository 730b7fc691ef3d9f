// Calls to the host. `run` does what the host wants meanwhile and gives its outcome as JSON.
const makeCalls = (binding, run, { Error, define }) => {
  const kEmptyTurns = 50;  // where `debugger` no longer parks, a call gives up instead of turning for ever
  const inbox = { __proto__: null };
  let first = 0;
  let last = 0;
  let parked = false;
  let calls = 0;
  const answers = { __proto__: null };  // one for a call further out may come while a call made since waits

  const fail = (number, message) => {
    const error = new Error(message);
    define(error, 'number', number);
    define(error, 'description', message);
    throw error;
  };

  // Sends a call and runs what the host asks for until the answer is there. Whatever else has arrived by then is run
  // before script goes on: nobody would look at it later.
  const exchange = (operation, parts) => {
    const call = ++calls;
    binding('["' + operation + '",' + call + (parts ? ',' + parts : '') + ']');
    let answer;
    do {
      for (let turns = 0; first === last; ++turns) {
        if (turns > kEmptyTurns) {
          binding('["leaving"]');
          fail(0, 'Native objects cannot be reached at this moment.');
        }
        parked = true;
        debugger;
        parked = false;
      }
      const item = inbox[first];
      delete inbox[first++];
      const result = item.kind === 'run' && run(item);
      if (!result) answers[item.id] = item;
      answer = answers[call];
      const waits = !answer && first === last;
      if (result) binding('["result",' + item.id + ',' + result + ',' + waits + ']');
    } while (!answer || first !== last);
    delete answers[call];
    if (answer.kind === 'error') fail(answer.number, answer.message);
    return answer.kind === 'method' ? (answer.surely ? kMethod : kPerhapsMethod) : answer.value;
  };

  // False if no call is parked.
  const deliver = (item) => {
    if (parked) inbox[last++] = item;
    return parked;
  };

  return { exchange, deliver };
};
