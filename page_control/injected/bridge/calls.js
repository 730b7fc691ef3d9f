// Calls to the host. `run` executes a task of the host and returns its outcome as JSON.
const makeCalls = (post, run, { Error, define }) => {
  const kEmptyTurns = 50;  // where `debugger` no longer pauses, a call gives up instead of spinning for ever
  const inbox = { __proto__: null };
  let first = 0;
  let last = 0;
  let paused = false;
  let calls = 0;
  const replies = { __proto__: null };  // the reply to an outer call may arrive while a later call still waits

  const fail = (number, message) => {
    const error = new Error(message);
    define(error, 'number', number);
    define(error, 'description', message);
    throw error;
  };

  const failUnreachable = () => {
    post('["unloading"]');
    fail(0, 'Native objects cannot be reached at this moment.');
  };

  // Posts a call and runs the host's tasks until the reply arrives. Tasks that are still queued then run before script
  // continues, because only a call reads the inbox.
  const exchange = (operation, parts) => {
    if (paused) failUnreachable();  // in a listener that the engine calls while the page is paused
    const call = ++calls;
    post('["' + operation + '",' + call + (parts ? ',' + parts : '') + ']');
    let reply;
    do {
      for (let turns = 0; first === last; ++turns) {
        if (turns > kEmptyTurns) failUnreachable();
        paused = true;
        debugger;
        paused = false;
      }
      const item = inbox[first];
      delete inbox[first++];
      const result = item.kind === 'run' && run(item);
      if (!result) replies[item.id] = item;
      reply = replies[call];
      const awaitsReply = !reply && first === last;
      if (result) post('["result",' + item.id + ',' + result + ',' + awaitsReply + ']');
    } while (!reply || first !== last);
    delete replies[call];
    if (reply.kind === 'error') fail(reply.number, reply.message);
    return reply.kind === 'method' ? (reply.isPermanent ? kMethod : kMethodThisTime) : reply.value;
  };

  // False if no call is paused.
  const enqueue = (item) => {
    if (paused) inbox[last++] = item;
    return paused;
  };

  return { exchange, enqueue };
};
