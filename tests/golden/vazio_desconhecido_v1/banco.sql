.read ../esquema.sql
