// The one connection to the server: requests with their answers, and what the server tells unasked. It comes
// back by itself; a hidden page wants nothing.
//
// Events: "state" {text: on, off, gone, lost or stranger}, "word" {text, own: this page said it},
// "log" {name, text, whole}, "lamp" {name, value}, "said" {text}, "picture" {data}.

const retryMs = 500;
const ownKept = 200;

class Link extends EventTarget {
  constructor() {
    super();
    this.state = "lost";
    this.wishes = new Map(); // wish: how many parts of the page have it
    this.waiting = new Map(); // id: what an answer resolves
    this.nextId = 1;
    this.own = []; // what this page has said lately
    this.wanted = null; // what the server was told last
    document.addEventListener("visibilitychange", () => this.sendWishes());
  }

  connect() {
    this.socket = new WebSocket(new URL("link", location.href.replace(/^http/, "ws")));
    this.socket.binaryType = "arraybuffer";
    this.socket.onopen = () => {
      this.wanted = null;
      this.sendWishes();
    };
    this.socket.onmessage = (event) => {
      if (typeof event.data === "string") this.take(event.data);
      else this.tell("picture", { data: event.data });
    };
    this.socket.onclose = () => this.lose();
  }

  async lose() {
    for (const { reject } of this.waiting.values()) reject(new Error("the page's server has gone"));
    this.waiting.clear();
    let stranger = false;
    try {
      stranger = (await fetch("index.html", { method: "GET" })).status === 403;
    } catch {
      // there is no server at all
    }
    this.setState(stranger ? "stranger" : "lost");
    setTimeout(() => this.connect(), retryMs);
  }

  setState(state) {
    if (this.state === state) return;
    this.state = state;
    this.tell("state", { text: state });
  }

  tell(kind, detail) {
    this.dispatchEvent(new CustomEvent(kind, { detail }));
  }

  take(message) {
    const end = message.indexOf("\n");
    const head = end < 0 ? message : message.slice(0, end);
    const body = end < 0 ? "" : message.slice(end + 1);
    const at = head.indexOf(" ");
    const kind = head.slice(0, at);
    const rest = head.slice(at + 1);
    if (kind === "phone") this.setState(rest);
    else if (kind === "word") this.tell("word", { text: rest, own: this.own.includes(rest) });
    else if (kind === "log" || kind === "tail")
      this.tell("log", { name: rest, text: body, whole: kind === "tail" });
    else if (kind === "said") this.tell("said", { text: rest });
    else if (kind === "answer") this.answer(rest, body);
    else if (kind === "lamp") {
      const [name, value] = rest.split(" ");
      this.tell("lamp", { name, value: Number(value) });
    }
  }

  answer(head, body) {
    const [id, how] = head.split(" ");
    const one = this.waiting.get(id);
    if (!one) return;
    this.waiting.delete(id);
    if (how === "ok") one.resolve(body);
    else one.reject(new Error(body));
  }

  send(message) {
    const open = this.socket?.readyState === WebSocket.OPEN;
    if (open) this.socket.send(message);
    return open;
  }

  remember(request) {
    this.own.push(request);
    this.own.splice(0, this.own.length - ownKept);
  }

  // A touch or a key, which no long request holds up.
  hand(request) {
    this.remember(request);
    return this.send(`hand ${request}`);
  }

  // A request to the control port: its answer, or an Error with the reason.
  ask(request) {
    const id = String(this.nextId++);
    this.remember(request);
    return new Promise((resolve, reject) => {
      this.waiting.set(id, { resolve, reject });
      if (this.send(`ask ${id} ${request}`)) return;
      this.waiting.delete(id);
      reject(new Error("the page's server has gone"));
    });
  }

  // A file that later requests may name.
  keep(name, content) {
    this.send(`keep ${name}`);
    this.send(content);
  }

  // Has the server tell of something until the function that comes back is called.
  want(wish) {
    this.wishes.set(wish, (this.wishes.get(wish) ?? 0) + 1);
    this.sendWishes();
    return () => {
      const left = this.wishes.get(wish) - 1;
      if (left > 0) this.wishes.set(wish, left);
      else this.wishes.delete(wish);
      this.sendWishes();
    };
  }

  sendWishes() {
    const now = document.hidden ? "" : [...this.wishes.keys()].sort().join(",");
    if (now !== this.wanted && this.send(`want ${now}`)) this.wanted = now;
  }
}

export const link = new Link();
