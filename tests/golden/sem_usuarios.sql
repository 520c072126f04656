-- The identity query has no second table.
DROP TABLE dados_usuario;
