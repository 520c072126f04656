.read ../esquema.sql
.read ../uma_linha.sql
