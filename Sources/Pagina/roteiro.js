
// Sorts tables by a column and hides what does not hold the words asked for. The page needs neither to be read.
(function () {
  'use strict';

  function valor(celula) {
    if (!celula) return '';
    var dado = celula.getAttribute('data-v');
    if (dado !== null) return Number(dado);
    var texto = celula.textContent.trim();
    var numero = texto.replace(/\./g, '').replace(',', '.').replace(/\s*%$/, '').replace('\u2212', '-');
    return texto !== '' && isFinite(Number(numero)) ? Number(numero) : texto.toLowerCase();
  }

  function compara(a, b) {
    if (typeof a === typeof b) return a < b ? -1 : a > b ? 1 : 0;
    return typeof a === 'number' ? -1 : 1;
  }

  function ordena(tabela, coluna, titulo) {
    var desce = titulo.getAttribute('aria-sort') === 'ascending';
    tabela.querySelectorAll('th[aria-sort]').forEach(function (outro) { outro.removeAttribute('aria-sort'); });
    titulo.setAttribute('aria-sort', desce ? 'descending' : 'ascending');
    var corpo = tabela.tBodies[0];
    Array.from(corpo.rows)
      .map(function (linha) { return { linha: linha, valor: valor(linha.cells[coluna]) }; })
      .sort(function (a, b) { return desce ? compara(b.valor, a.valor) : compara(a.valor, b.valor); })
      .forEach(function (item) { corpo.appendChild(item.linha); });
  }

  document.querySelectorAll('table.ordena').forEach(function (tabela) {
    Array.from(tabela.tHead.rows[tabela.tHead.rows.length - 1].cells).forEach(function (titulo, coluna) {
      var botao = document.createElement('button');
      botao.type = 'button';
      while (titulo.firstChild) botao.appendChild(titulo.firstChild);
      botao.addEventListener('click', function () { ordena(tabela, coluna, titulo); });
      titulo.appendChild(botao);
    });
  });

  // A link to a record opens what it stands in.
  function abre() {
    var alvo = location.hash.length > 1 && document.getElementById(decodeURIComponent(location.hash.slice(1)));
    for (var pai = alvo; pai; pai = pai.parentElement) if (pai.tagName === 'DETAILS') pai.open = true;
    if (alvo) alvo.scrollIntoView();
  }
  window.addEventListener('hashchange', abre);
  abre();

  var caixa = document.getElementById('filtro');
  if (!caixa) return;
  caixa.hidden = false;
  var entrada = caixa.querySelector('input');
  var resposta = caixa.querySelector('output');
  entrada.addEventListener('input', function () {
    var palavras = entrada.value.toLowerCase().split(/\s+/).filter(Boolean);
    var vistos = 0;
    document.querySelectorAll('details.dia').forEach(function (dia) {
      var achou = false;
      dia.querySelectorAll('details.doc').forEach(function (doc) {
        var texto = doc.textContent.toLowerCase();
        var serve = palavras.every(function (palavra) { return texto.indexOf(palavra) >= 0; });
        doc.hidden = !serve;
        if (serve) { achou = true; vistos += 1; }
      });
      dia.hidden = !achou;
      if (palavras.length) dia.open = achou;
    });
    resposta.textContent = palavras.length ? String(vistos) : '';
  });
}());
