# SPDX-License-Identifier: MIT
"""Everything that a page was seen or thought to try to get out of its archive.

Each way out has a host name of its own, NAME.fuga.example, and a port of its own, so that what
reaches the wire says which it was. {h} is the way's host and port, {n} its bare name, {p} its port,
{i} the address that every name means.
"""

PUERTO = 7000

# Elements that ask for something as soon as they are there.
ELEMENTOS = {
    "imagen": "<img src='http://{h}/'>",
    "imagen-ip": "<img src='http://{i}:{p}/'>",
    "imagen-ip6": "<img src='http://[::1]:{p}/'>",
    "imagen-local": "<img src='http://127.0.0.1:{p}/'>",
    "imagen-mdns": "<img src='http://{n}.local:{p}/'>",
    "imagen-credenciales": "<img src='http://u:c@{h}/'>",
    "imagen-srcset": "<picture><source srcset='https://{h}/'><img srcset='https://{h}/ 2x'></picture>",
    "imagen-ftp": "<img src='ftp://{h}/a.png'>",
    "guion": "<script src='https://{h}/'></script>",
    "guion-modulo": "<script type=module src='https://{h}/'></script>",
    "estilo": "<link rel=stylesheet href='https://{h}/'>",
    "estilo-import": "<style>@import 'https://{h}/';</style>",
    "estilo-fondo": "<div style='background:url(https://{h}/)'>.</div>",
    "estilo-letra": "<style>@font-face {{ font-family: a{p}; src: url(https://{h}/) }}</style>"
                    "<p style='font-family:a{p}'>.</p>",
    "marco": "<iframe src='http://{h}/'></iframe>",
    "marco-srcdoc": "<iframe srcdoc=\"<img src='http://{h}/'>\"></iframe>",
    "marco-datos": "<iframe src=\"data:text/html,<img src='http://{h}/'>\"></iframe>",
    "marco-refresco": "<iframe srcdoc=\"<meta http-equiv=refresh content='0;url=http://{h}/'>\">"
                      "</iframe>",
    "objeto": "<object data='http://{h}/'></object>",
    "incrustado": "<embed src='http://{h}/a.pdf'>",
    "video": "<video autoplay src='http://{h}/a.webm' poster='http://{h}/p.png'></video>",
    "sonido": "<audio autoplay src='http://{h}/a.ogg'></audio>",
    "subtitulos": "<video src='data:,'><track default src='http://{h}/a.vtt'></video>",
    "svg-imagen": "<svg><image href='http://{h}/a.png'/></svg>",
    "svg-uso": "<svg><use href='http://{h}/a.svg#a'/></svg>",
    "portal": "<portal src='https://{h}/'></portal>",
    "buscar-nombre": "<meta http-equiv=x-dns-prefetch-control content=on>"
                     "<a href='http://{h}/'>a</a><link rel=dns-prefetch href='//{h}'>",
    "preconectar": "<link rel=preconnect href='https://{h}'>",
    "prever": "<link rel=prefetch href='https://{h}/'><link rel=prerender href='https://{h}/'>",
    "precargar": "<link rel=preload as=fetch href='https://{h}/'>"
                 "<link rel=modulepreload href='https://{h}/'>",
    "manifiesto": "<link rel=manifest href='https://{h}/'><link rel=icon href='https://{h}/'>",
    "especular": "<script type=speculationrules>{{\"prefetch\":[{{\"source\":\"list\",\"urls\":"
                 "[\"https://{h}/\"]}}],\"prerender\":[{{\"source\":\"list\",\"urls\":"
                 "[\"https://{h}/\"]}}]}}</script>",
    "xslt": "<iframe src=\"data:text/xml,<?xml-stylesheet type='text/xsl' href='http://{h}/'?><a/>\">"
            "</iframe>",
}

# Expressions of scripts; a promise is waited for.
GUIONES = {
    "fetch": "fetch('http://{h}/')",
    "fetch-sin-cors": "fetch('http://{h}/', {{mode: 'no-cors', method: 'POST', body: 'x'}})",
    "fetch-final": "fetch('http://{h}/', {{keepalive: true}})",
    "xhr-sincrono": "{{ const x = new XMLHttpRequest(); x.open('GET', 'http://{h}/', false); x.send(); }}",
    "aviso": "navigator.sendBeacon('http://{h}/', 'x')",
    "modulo": "import('https://{h}/')",
    "sucesos": "new Promise(s => {{ new EventSource('http://{h}/').onerror = s; }})",
    "websocket": "new Promise(s => {{ new WebSocket('ws://{h}/').onclose = s; }})",
    "websocket-ip": "new Promise(s => {{ new WebSocket('wss://{i}:{p}/').onclose = s; }})",
    "websocket-flujo": "new WebSocketStream('ws://{h}/').connection",
    "webtransport": "new WebTransport('https://{h}/').ready",
    "webtransport-ip": "new WebTransport('https://{i}:{p}/').ready",
    "webtransport-marco": "new (marco().WebTransport)('https://{h}/').ready",
    "webtransport-obrero": "obrero(\"new WebTransport('https://{h}/').ready\")",
    "webrtc-stun": "ice('stun:{h}')",
    "webrtc-stun-ip": "ice('stun:{i}:{p}')",
    "webrtc-turn": "ice('turn:{h}')",
    "webrtc-turn-ip": "ice('turn:{i}:{p}')",
    "webrtc-turn-tcp": "ice('turn:{h}?transport=tcp')",
    "webrtc-turn-tcp-ip": "ice('turn:{i}:{p}?transport=tcp')",
    "webrtc-turns-ip": "ice('turns:{i}:{p}?transport=tcp')",
    "webrtc-turn-local": "ice('turn:127.0.0.1:{p}?transport=tcp')",
    "webrtc-marco": "ice('turn:{i}:{p}', marco().RTCPeerConnection)",
    "webrtc-candidato": "candidatos('{i}', {p})",
    "webrtc-candidato-nombre": "candidatos('{n}.local', {p})",
    "obrero-fetch": "obrero(\"fetch('http://{h}/')\")",
    "obrero-guion": "obrero(\"importScripts('http://{h}/')\")",
    "obrero-ajeno": "new Worker('http://{h}/')",
    "obrero-comun": "comun(\"fetch('http://{h}/')\")",
    "obrero-servicio": "navigator.serviceWorker.register('http://{h}/')",
    "labor": "CSS.paintWorklet.addModule('https://{h}/')",
    "ventana": "window.open('http://{h}/')",
    "ventana-sola": "window.open('http://{h}/', '_blank', 'noopener')",
    "enlace": "pulsar(\"<a target=_blank rel=noopener href='http://{h}/'>a</a>\")",
    "enlace-aviso": "pulsar(\"<a ping='http://{h}/' href='#a'>a</a>\")",
    "enlace-descarga": "pulsar(\"<a download href='http://{h}/'>a</a>\")",
    "formulario-marco": "enviar(\"<iframe name=m{p}></iframe><form target=m{p} method=post "
                        "action='http://{h}/'><input name=a></form>\")",
    "svg-filtro": "document.body.insertAdjacentHTML('beforeend', \"<div style=\\\"filter:"
                  "url('http://{h}/a.svg#f')\\\">.</div>\")",
    "informe": "fetch('data:,', {{referrer: 'http://{h}/'}})",
    "medios": "navigator.mediaSession && new Audio('http://{h}/').play()",
    "pago": "new PaymentRequest([{{supportedMethods: 'https://{h}/'}}],"
            " {{total: {{label: 'a', amount: {{currency: 'USD', value: '1'}}}}}}).canMakePayment()",
    "posicion": "new Promise(s => navigator.geolocation.getCurrentPosition(s, s))",
}

# Whole documents that try to become something else.
DOCUMENTOS = {
    "refresco": "<meta http-equiv=refresh content='0;url=http://{h}/'>",
    "lugar": "<script>location = 'http://{h}/';</script>",
    "lugar-guion": "<script>location = 'javascript:location=\"http://{h}/\"';</script>",
    "formulario": "<form id=f method=post action='http://{h}/'><input name=a></form>"
                  "<script>document.getElementById('f').submit();</script>",
    "base": "<base href='http://{h}/'><img src='a.png'>",
    "ida": "<script>addEventListener('pagehide', () => navigator.sendBeacon('http://{h}/'));"
           "location = 'http://{h}/';</script>",
}

# What the scripts above call upon.
UTILES = """
const marco = () => document.body.appendChild(document.createElement('iframe')).contentWindow;
const ice = (servidor, Clase = RTCPeerConnection) => new Promise(sigue => {
    const par = new Clase({iceServers: [{urls: servidor, username: 'u', credential: 'c'}]});
    par.createDataChannel('c');
    par.onicegatheringstatechange = () => { if (par.iceGatheringState === 'complete') sigue(); };
    par.createOffer().then(o => par.setLocalDescription(o));
});
const candidatos = async (casa, puerto) => {
    const uno = new RTCPeerConnection(), otro = new RTCPeerConnection();
    uno.createDataChannel('c');
    await uno.setLocalDescription(await uno.createOffer());
    await otro.setRemoteDescription(uno.localDescription);
    await otro.setLocalDescription(await otro.createAnswer());
    await uno.setRemoteDescription(otro.localDescription);
    for (const como of ['udp ' + 2122260223, 'tcp ' + 1518280447])
        await uno.addIceCandidate({sdpMid: '0', candidate: `candidate:1 1 ${como} ${casa} ${puerto}`
            + ' typ host' + (como[0] === 't' ? ' tcptype passive' : '')});
};
const deTexto = guion => URL.createObjectURL(new Blob([guion], {type: 'text/javascript'}));
const obrero = guion => new Promise(sigue => {
    const uno = new Worker(deTexto(
        `(async () => { try { await ${guion}; } catch (e) {} postMessage(1); })()`));
    uno.onmessage = uno.onerror = sigue;
});
const comun = guion => new Promise(sigue => {
    const uno = new SharedWorker(deTexto(
        `onconnect = async e => { try { await ${guion}; } catch (f) {} e.ports[0].postMessage(1); }`));
    uno.port.onmessage = uno.onerror = sigue;
});
const poner = html => {
    const sitio = document.body.appendChild(document.createElement('div'));
    sitio.innerHTML = html;
    return sitio;
};
const pulsar = html => poner(html).querySelector('a').click();
const enviar = html => poner(html).querySelector('form').submit();
const pausa = ms => new Promise(sigue => setTimeout(sigue, ms));
"""


def puertos(*tablas):
    """The port of each way out, the same in every run."""
    nombres = [nombre for tabla in tablas for nombre in tabla]
    return {nombre: PUERTO + i for i, nombre in enumerate(nombres)}


PUERTOS = puertos(ELEMENTOS, GUIONES, DOCUMENTOS)


def hecha(nombre, modelo, ajena):
    casa = f"{nombre}.fuga.example"
    return modelo.format(h=f"{casa}:{PUERTOS[nombre]}", n=nombre, p=PUERTOS[nombre], i=ajena)
